#include "Gate.h"

#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <map>

#include "dlog.h"

namespace desktop {

namespace op {
#define OPERATION(id, name, ...) const Operation id{name, {__VA_ARGS__}};
#include "operations.def"
#undef OPERATION
}  // namespace op

const std::vector<const Operation*>& Operations() {
  static const std::vector<const Operation*> all = {
#define OPERATION(id, name, ...) &op::id,
#include "operations.def"
#undef OPERATION
  };
  return all;
}

const Operation* FindOperation(std::string_view name) {
  const auto& all = Operations();
  const auto found = std::find_if(all.begin(), all.end(), [&](const Operation* o) { return o->name == name; });
  return found == all.end() ? nullptr : *found;
}

void Entry::Add(std::string& to, std::string_view value) {
  if (!to.empty()) to += ", ";
  to += value;
}

void Entry::Add(std::string& to, const char* value) { Add(to, std::string_view(value ? value : "null")); }

namespace {

constexpr size_t kMostPending = 256;
/// A fault that another process sets takes hold at the latest after this long.
constexpr std::chrono::milliseconds kFaultsAge{1};
/// Lines that the journal keeps.
constexpr int kMostLines = 100000;

struct Line {
  int64_t at;
  const Operation* operation;
  Entry entry;
  std::string result;
};

struct Fault {
  std::string result;
  bool counted;
};

struct State {
  std::recursive_mutex mutex;
  std::vector<Line> pending;
  size_t writing = 0;
  int64_t version = -1;
  std::chrono::steady_clock::time_point asked;
  std::map<std::string, Fault, std::less<>> faults;
  int countdown = 0;
  bool forGood = false, reached = false;
  Gate::Watcher watcher;
};

State& S() {
  static State* state = new State;  // outlives every static that still calls the platform at exit
  return *state;
}

int64_t Now() {
  timeval now;
  gettimeofday(&now, nullptr);
  return now.tv_sec * int64_t{1000} + now.tv_usec / 1000;
}

/// Another process may have set or healed faults since the last call.
void ReadFaults(State& s) {
  // Asking the file costs as much as many an operation does, so it is asked once in a while only.
  const auto now = std::chrono::steady_clock::now();
  if (s.version >= 0 && now - s.asked < kFaultsAge) return;
  s.asked = now;
  const int64_t version = Store::Get().DataVersion();
  if (s.version == version) return;
  s.version = version;
  s.faults.clear();
  Query q("SELECT operation, result, times FROM fault");
  while (q.Row()) s.faults[q.Text(0)] = {q.Text(1), !q.IsNull(2)};
}

bool FaultOf(State& s, const Operation& operation, std::string& failure) {
  ReadFaults(s);
  const auto fault = s.faults.find(std::string_view(operation.name));
  if (fault == s.faults.end()) return false;
  failure = fault->second.result;
  if (fault->second.counted) {
    bool ours = false;
    Store::Get().Write([&] {
      ours = Query("UPDATE fault SET times = times - 1 WHERE operation = ? AND times > 0", operation.name).Run() > 0;
      Query("DELETE FROM fault WHERE times <= 0").Run();
    });
    s.version = -1;
    return ours;
  }
  return true;
}

bool NthFault(State& s, const Operation& operation, std::string& failure) {
  if (operation.failures.empty()) return false;
  if (s.countdown > 0) {
    if (--s.countdown > 0) return false;
    s.reached = true;
  } else if (!s.reached || !s.forGood) {
    return false;
  }
  failure = operation.failures.front();
  return true;
}

}  // namespace

std::recursive_mutex& Gate::Mutex() { return S().mutex; }

bool Gate::Faulted(const Operation& operation, std::string& failure) {
  State& s = S();
  if (NthFault(s, operation, failure)) return true;
  try {
    return FaultOf(s, operation, failure);
  } catch (const StoreError& error) {
    if (operation.failures.empty()) return false;
    Report(operation, error);
    failure = operation.failures.front();
    return true;
  }
}

void Gate::FaultsChanged() {
  const std::lock_guard lock(Mutex());
  S().version = -1;
}

void Gate::FailNth(int n, bool forGood) {
  State& s = S();
  s.countdown = n;
  s.forGood = forGood;
  s.reached = false;
}

bool Gate::NthReached() { return S().reached; }

void Gate::Watch(Watcher watcher) { S().watcher = std::move(watcher); }

void Gate::Record(const Operation& operation, Entry entry, std::string result) {
  State& s = S();
  if (s.watcher) s.watcher(operation, entry, result);
  s.pending.push_back({Now(), &operation, std::move(entry), std::move(result)});
  if (s.pending.size() >= kMostPending) Flush();
}

void Gate::Report(const Operation& operation, const StoreError& error) {
  dlog_print(DLOG_ERROR, "desktop", "%s: %s\n", operation.name, error.what());
}

bool Gate::HasPending() {
  const std::lock_guard lock(Mutex());
  return !S().pending.empty();
}

void Gate::Flush() {
  const std::lock_guard lock(Mutex());
  State& s = S();
  if (s.pending.empty() || !Store::IsOpen()) return;
  try {
    Store::Get().Write([] {}, false);
  } catch (const StoreError& error) {
    dlog_print(DLOG_ERROR, "desktop", "journal: %s\n", error.what());
    s.pending.clear();
  }
}

void Gate::WritePending() {
  State& s = S();
  s.writing = s.pending.size();
  if (s.pending.empty()) return;
  const int pid = getpid();
  Query insert("INSERT INTO journal (at, pid, operation, arguments, result, outputs) VALUES (?, ?, ?, ?, ?, ?)");
  for (const Line& line : s.pending) {
    insert.RunWith(line.at, pid, line.operation->name, line.entry.Arguments(), line.result, line.entry.Outputs());
  }
  const int64_t last = sqlite3_last_insert_rowid(Store::Get().Handle());
  constexpr int64_t step = kMostLines / 100;
  if (last / step != (last - static_cast<int64_t>(s.writing)) / step) {
    Query("DELETE FROM journal WHERE seq <= ?", last - kMostLines).Run();
  }
}

void Gate::PendingWritten() {
  State& s = S();
  s.pending.erase(s.pending.begin(), s.pending.begin() + static_cast<std::ptrdiff_t>(s.writing));
  s.writing = 0;
}

}  // namespace desktop
