// The first answer of a fresh process: a client of the library, or one that reads the TV's file with SQLite alone.
//   bench-client LIBRARY        (of $QUIRELLE_TV)
//   bench-client
#include <dlfcn.h>
#include <sqlite3.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

double Now() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

int AskLibrary(const char* path) {
  void* library = dlopen(path, RTLD_NOW);
  void* function = library ? dlsym(library, "Tessarin_GetSlotFrequency") : nullptr;
  return function ? reinterpret_cast<int (*)(int)>(function)(0) : -1;
}

int AskFile() {
  sqlite3* db = nullptr;
  sqlite3_stmt* statement = nullptr;
  sqlite3_open_v2(std::getenv("QUIRELLE_TV"), &db, SQLITE_OPEN_READWRITE, nullptr);
  sqlite3_prepare_v2(db, "SELECT frequency FROM satcr WHERE tuner = 0", -1, &statement, nullptr);
  const int frequency = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int(statement, 0) : -1;
  sqlite3_finalize(statement);
  sqlite3_close(db);
  return frequency;
}

}  // namespace

/// Prints when the answer was there, by the clock that all processes share.
int main(int argc, char** argv) {
  const int frequency = argc > 1 ? AskLibrary(argv[1]) : AskFile();
  const double end = Now();
  if (frequency < 0) return 1;
  std::printf("%.9f\n", end);
}
