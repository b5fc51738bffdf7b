#include "Process.h"

#include <fcntl.h>
#include <json/json.h>
#include <png.h>
#include <signal.h>
#include <sqlite3.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace test {

namespace {

constexpr useconds_t kPoll = 10'000;

std::string OutputOf(const Outcome& outcome) {
  if (outcome.status != 0) throw std::runtime_error(outcome.errors);
  return outcome.output;
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

Process::Process(const std::function<void()>& body, const std::string& output) : m_pid(fork()) {
  if (m_pid < 0) throw std::runtime_error("no process");
  if (m_pid > 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  const int descriptor = open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  dup2(descriptor, STDOUT_FILENO);
  dup2(descriptor, STDERR_FILENO);
  try {
    body();
  } catch (const std::exception& error) {
    dprintf(STDERR_FILENO, "%s\n", error.what());
    _exit(1);
  }
  _exit(0);
}

Process::Process(const Texts& words, const Texts& environment, const std::string& output)
    : Process(
          [&] {
            for (const std::string& variable : environment) putenv(const_cast<char*>(variable.c_str()));
            std::vector<char*> arguments;
            for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
            arguments.push_back(nullptr);
            execvp(arguments[0], arguments.data());
            throw std::runtime_error(words[0] + " cannot be run");
          },
          output) {}

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

bool Process::KillSoon(int turn, const std::function<bool()>& hasBegun, unsigned microseconds) {
  if (turn % 4 != 0) Until(hasBegun);
  usleep(microseconds);
  Signal(SIGKILL);
  return Wait() == -SIGKILL;
}

std::string Built(const std::string& program) { return std::string(BUILD_DIRECTORY) + "/" + program; }

TvFile::TvFile(const std::string& profile) { Do({"new", profile}); }

Outcome TvFile::Run(const char* program, Texts words, const Texts& environment) const {
  words.insert(words.begin(), {"--tv", Path()});
  return Execute(program, words, environment);
}

std::string TvFile::Do(const Texts& words) const { return OutputOf(Tv(words)); }

Json::Value TvFile::Screen(Texts words) const {
  words.insert(words.end(), {"--dump", "-"});
  return Parsed(OutputOf(Program(words)));
}

std::string TvFile::Get(const std::string& key) const {
  const std::string line = Do({"get", key});
  return line.substr(0, line.find('\n'));
}

std::unique_ptr<Process> TvFile::Start(const Texts& environment) const {
  const Texts words = {Built("quirelle"), "tv-rating", "--tv", Path()};
  auto program = std::make_unique<Process>(words, environment, *this / "out");
  if (!Until([this] { return Says(Do({"journal"}), "KeyRouter_Set_KeyList"); })) {
    throw std::runtime_error(ReadWhole(*this / "out"));
  }
  return program;
}

std::string TvFile::Contents() const {
  std::string all;
  for (const char* table : {"setting", "item", "choice", "chip", "fault", "application", "launch",
                            "(SELECT hex(name) FROM rating_region)", "(SELECT place, hex(name) FROM rating_dimension)",
                            "(SELECT dimension, place, hex(name), locked FROM rating_value)"}) {
    for (const std::string& row : Rows(Path(), std::string("SELECT * FROM ") + table)) all += row + "\n";
  }
  return all;
}

Texts Rows(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  char** fields = nullptr;
  int count = 0, columns = 0;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  sqlite3_busy_timeout(db, 5000);
  const int code = sqlite3_get_table(db, sql.c_str(), &fields, &count, &columns, nullptr);
  const std::string what = sqlite3_errmsg(db);
  Texts rows(static_cast<size_t>(count));
  // The first row has the names of the columns.
  for (int i = 0; i < count * columns; ++i) {
    const char* field = fields[columns + i];
    rows[static_cast<size_t>(i / columns)] += std::string(i % columns ? "|" : "") + (field ? field : "NULL");
  }
  sqlite3_free_table(fields);
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

Json::Value Parsed(const std::string& json) {
  Json::Value value;
  std::istringstream(json) >> value;
  return value;
}

bool Says(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

Picture LoadPicture(const std::string& path) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  if (!png_image_begin_read_from_file(&image, path.c_str())) throw std::runtime_error(path + ": " + image.message);
  image.format = PNG_FORMAT_RGB;
  Picture picture{image.width, image.height, std::vector<unsigned char>(PNG_IMAGE_SIZE(image))};
  png_image_finish_read(&image, nullptr, picture.rgb.data(), 0, nullptr);
  return picture;
}

}  // namespace test
