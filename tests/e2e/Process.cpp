#include "Process.h"

#include <fcntl.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace test {

namespace {

constexpr useconds_t kPoll = 10'000;

[[noreturn]] void Become(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                         const std::string& output) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int descriptor = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(descriptor, STDOUT_FILENO);
  dup2(descriptor, STDERR_FILENO);
  for (const std::string& variable : environment) putenv(const_cast<char*>(variable.c_str()));
  std::vector<char*> arguments;
  for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
  arguments.push_back(nullptr);
  execvp(arguments[0], arguments.data());
  _exit(127);
}

std::vector<std::string> OnTv(const std::string& path, std::vector<std::string> words) {
  words.insert(words.begin(), {"--tv", path});
  return words;
}

}  // namespace

bool Until(const std::function<bool()>& holds, double seconds) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    usleep(kPoll);
  }
  return true;
}

Process::Process(const std::vector<std::string>& words, const std::vector<std::string>& environment,
                 const std::string& output)
    : m_pid(fork()) {
  if (m_pid < 0) throw std::runtime_error("no process");
  if (m_pid == 0) Become(words, environment, output);
}

Process::~Process() {
  if (m_status) return;
  kill(m_pid, SIGKILL);
  waitpid(m_pid, nullptr, 0);
}

void Process::Signal(int signal) {
  if (!m_status) kill(m_pid, signal);
}

std::optional<int> Process::Wait(double seconds) {
  Until(
      [this] {
        int status = 0;
        if (m_status || waitpid(m_pid, &status, WNOHANG) != m_pid) return m_status.has_value();
        m_status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
        return true;
      },
      seconds);
  return m_status;
}

std::string Built(const std::string& program) { return std::string(BUILD_DIRECTORY) + "/" + program; }

TvFile::TvFile(const std::string& profile) {
  const Outcome made = Tv({"new", profile});
  if (made.status != 0) throw std::runtime_error(made.errors);
}

Outcome TvFile::Tv(std::vector<std::string> words, const std::vector<std::string>& environment) const {
  return Execute("quirelle-tv", OnTv(Path(), std::move(words)), environment);
}

Outcome TvFile::Program(std::vector<std::string> words, const std::vector<std::string>& environment) const {
  return Execute("quirelle", OnTv(Path(), std::move(words)), environment);
}

std::string TvFile::Get(const std::string& key) const {
  const Outcome got = Tv({"get", key});
  if (got.status != 0) throw std::runtime_error(got.errors);
  return got.output.substr(0, got.output.find('\n'));
}

std::string TvFile::Contents() const {
  std::string all;
  for (const char* table : {"setting", "item", "choice", "chip", "fault", "application", "launch"}) {
    for (const std::string& row : Rows(Path(), std::string("SELECT * FROM ") + table)) all += row + "\n";
  }
  return all;
}

std::vector<std::string> Rows(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  std::vector<std::string> rows;
  char* message = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  sqlite3_busy_timeout(db, 5000);
  const auto take = [](void* data, int columns, char** values, char**) {
    std::string row;
    for (int i = 0; i < columns; ++i) row += std::string(i ? "|" : "") + (values[i] ? values[i] : "NULL");
    static_cast<std::vector<std::string>*>(data)->push_back(row);
    return 0;
  };
  const int code = sqlite3_exec(db, sql.c_str(), take, &rows, &message);
  const std::string what = message ? message : "";
  sqlite3_free(message);
  sqlite3_close(db);
  if (code != SQLITE_OK) throw std::runtime_error(path + ": " + sql + ": " + what);
  return rows;
}

std::string ReadWhole(const std::string& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool IsOneLine(const std::string& text) {
  return text.size() > 1 && text.back() == '\n' && std::count(text.begin(), text.end(), '\n') == 1;
}

}  // namespace test
