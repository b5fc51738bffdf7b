#include "State.h"

#include <chrono>

#include "Store.h"

namespace desktop {

int64_t NowMilliseconds() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::system_clock::now().time_since_epoch())
      .count();
}

int64_t TvState(const char* name, int64_t missing) {
  Query q("SELECT value FROM tv_state WHERE name = ?", name);
  return q.Row() ? q.Int(0) : missing;
}

void SetTvState(const char* name, int64_t value) {
  Store::Get().Write([&] { Query("REPLACE INTO tv_state VALUES (?, ?)", name, value).Run(); });
}

}  // namespace desktop
