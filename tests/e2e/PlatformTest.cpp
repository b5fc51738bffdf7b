// The program on another platform than the desktop TV.
#include "Process.h"

namespace test {

namespace {

TEST(Platform, TheSkeletonSaysWhereToBegin) {
  for (const Texts& words : {Texts{}, {"tv-rating"}, {"tv-rating", "--keys", "Return", "--dump", "-"}}) {
    const Outcome outcome = Execute("quirelle-skeleton", words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
    EXPECT_TRUE(Says(outcome.errors, "ui_app_main")) << outcome.errors;
    EXPECT_EQ(outcome.errors.find('\n') + 1, outcome.errors.size());
  }
}

TEST(Platform, IsTheOneThatTheBuildNames) {
  const TemporaryDirectory directory;
  const std::string build = directory / "build";
  const Outcome made = Execute("/usr/bin/cmake", {"-S", SOURCE_DIRECTORY, "-B", build, "-G", "Ninja",
                                                  "-DQUIRELLE_PLATFORM=" SOURCE_DIRECTORY "/platform/skeleton"});
  ASSERT_EQ(made.status, 0) << made.errors;
  const std::string steps = Execute("/usr/bin/ninja", {"-C", build, "-t", "commands", "quirelle"}).output;
  EXPECT_TRUE(Says(steps, "skeleton.dir/AppFramework.cpp.o") && Says(steps, "-o libquirelle.so")) << steps;
  EXPECT_FALSE(Says(steps, "/desktop/")) << steps;
}

}  // namespace

}  // namespace test
