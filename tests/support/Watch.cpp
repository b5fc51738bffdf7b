#include "Watch.h"

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kSignals[] = {SIGALRM};
#else
constexpr int kSignals[] = {SIGALRM, SIGSEGV, SIGABRT, SIGFPE, SIGBUS};
#endif

char g_story[8192];

void TellStory() { static_cast<void>(!write(STDERR_FILENO, g_story, strlen(g_story))); }

void Fell(int signal) {
  TellStory();
  // The way the process would have gone without this.
  std::signal(signal, SIG_DFL);
  std::raise(signal == SIGALRM ? SIGABRT : signal);
}

}  // namespace

namespace test {

Watch::Watch() {
#if defined(__SANITIZE_ADDRESS__)
  __sanitizer_set_death_callback(TellStory);
#endif
  for (const int signal : kSignals) std::signal(signal, Fell);
}

Watch::~Watch() {
  alarm(0);
  g_story[0] = '\0';
  for (const int signal : kSignals) std::signal(signal, SIG_DFL);
}

void Watch::Tell(const std::string& story) { snprintf(g_story, sizeof g_story, "%s", story.c_str()); }

void Watch::Expect(unsigned int seconds) { alarm(seconds); }

}  // namespace test
