// What ./setup does with packages that are missing, with a package manager that does as it is told.
#include <fstream>

#include "Process.h"

namespace test {

namespace {

/// A folder of programs that come before the machine's own.
class PackageManager {
 public:
  explicit PackageManager(const std::string& missing) {
    Put("id", "echo 0");
    Put("dpkg-query",
        "shift 2; for p; do case ' " + missing + " ' in *\" $p \"*) ;; *) echo $p installed ;; esac; done");
    Put("apt-get",
        "echo \"$*\" >>$0.log\n"
        "case $1 in update) exit $UPDATE ;; esac\n"
        "for p; do case \" $BROKEN \" in *\" $p \"*) exit 100 ;; esac; done");
  }

  /// Its words go to `apt-get.log`.
  Outcome Setup(const std::string& update, const std::string& broken) const {
    const std::string path = "PATH=" + (m_directory / "").string() + ":" + std::getenv("PATH");
    return Execute("/bin/bash", {SOURCE_DIRECTORY "/setup", "build"}, {path, "UPDATE=" + update, "BROKEN=" + broken});
  }
  std::string Log() const { return ReadWhole(m_directory / "apt-get.log"); }

 private:
  void Put(const std::string& name, const std::string& text) const {
    const std::filesystem::path path = m_directory / name;
    std::ofstream(path) << "#!/bin/sh\n" << text << "\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }

  TemporaryDirectory m_directory;
};

TEST(Setup, AsksNobodyWhenNothingIsMissing) {
  const PackageManager manager("");
  const Outcome outcome = manager.Setup("0", "");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors + outcome.output + manager.Log(), "");
}

TEST(Setup, GoesOnWithoutAListThatCannotBeFetched) {
  const PackageManager manager("cmake libpng-dev");
  const Outcome outcome = manager.Setup("100", "");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_TRUE(Says(outcome.errors, "Warning: ")) << outcome.errors;
  EXPECT_TRUE(Says(manager.Log(), " cmake libpng-dev\n")) << manager.Log();
}

TEST(Setup, NamesThePackagesThatCannotBeInstalled) {
  const PackageManager manager("cmake libpng-dev gettext");
  for (const char* update : {"0", "100"}) {
    const Outcome outcome = manager.Setup(update, "gettext libpng-dev");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.errors.ends_with("\nThese packages cannot be installed: gettext libpng-dev\n"))
        << outcome.errors;
  }
}

}  // namespace

}  // namespace test
