// A TV and the classes over it, without the program: what keeps something between calls is made anew.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <functional>
#include <string>
#include <vector>

#include "Harness.h"

namespace test {

/// Another connection to the TV, as another process has it.
class OtherProcess {
 public:
  explicit OtherProcess(const std::string& path);
  ~OtherProcess();
  void Execute(const std::string& sql);

 private:
  sqlite3* m_db = nullptr;
};

/// Forgets what the classes keep.
void ForgetKept();

/// SQL on the open TV: the first column of the first row, "" when there is none.
std::string Ask(const std::string& sql);
void Change(const std::string& sql);

/// Runs `body` and takes back what it changed on the TV.
void InTransaction(const std::function<void()>& body);

/// Texts of the log since the last call, without file, function and line.
std::vector<std::string> TakeLog();
bool Contains(const std::vector<std::string>& log, const std::string& text);

class TvsTest : public testing::Test {
 protected:
  explicit TvsTest(const std::string& profile = "europe");
  Tv m_tv;
};

/// One public operation, its result as text, and what it answers when a call of it fails.
struct PublicOperation {
  std::string name;
  std::function<std::string()> run;
  std::string failure;
};
std::vector<PublicOperation> PublicOperations();

}  // namespace test
