#include "Speech.h"

#include <Elementary.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Gate.h"
#include "toolkit_ext.h"

extern char** environ;

namespace desktop {

namespace {

std::vector<std::string> g_spoken;
bool g_on = false, g_aloud = false;
pid_t g_voice = 0;
/// Waits for the voice to end.
std::string g_next;
Ecore_Timer* g_watch = nullptr;
constexpr double kWatchSeconds = 0.1;

bool IsBlank(const std::string& text) { return text.find_first_not_of(" \t\n.") == std::string::npos; }

void SpeakAloud(const std::string& text) {
  const char* language = getenv("LANGUAGE");
  const std::string voice = language ? std::string(language).substr(0, 2) : "en";
  const char* arguments[] = {"espeak-ng", "-v", voice.c_str(), "--", text.c_str(), nullptr};
  if (posix_spawnp(&g_voice, arguments[0], nullptr, nullptr, const_cast<char**>(arguments), environ) != 0) g_voice = 0;
}

Eina_Bool WatchCB(void*) {
  if (g_voice > 0 && waitpid(g_voice, nullptr, WNOHANG) == 0) return ECORE_CALLBACK_RENEW;
  g_voice = 0;
  g_watch = nullptr;
  SpeakAloud(g_next);
  return ECORE_CALLBACK_CANCEL;
}

/// False for a blank one.
bool Note(const std::string& text) {
  if (IsBlank(text)) return false;
  Gate::Run(op::elm_access_say, Entry(text), [](Entry&) {});
  g_spoken.push_back(text);
  return true;
}

}  // namespace

void Silence() {
  if (g_watch) ecore_timer_del(g_watch);
  g_watch = nullptr;
  if (g_voice <= 0) return;
  kill(g_voice, SIGTERM);
  waitpid(g_voice, nullptr, 0);
  g_voice = 0;
}

void Read(const std::string& text) {
  if (!Note(text) || !g_aloud) return;
  Silence();
  SpeakAloud(text);
}

void ReadNext(const std::string& text) {
  if (!Note(text) || !g_aloud) return;
  g_next = text;
  if (!g_watch) g_watch = ecore_timer_add(kWatchSeconds, WatchCB, nullptr);
}

void StartSpeech(bool aloud) {
  Query q("SELECT value FROM setting WHERE key = 'db/setting/accessibility/tts' AND type = 'bool'");
  g_on = q.Row() && q.Int(0) != 0;
  g_aloud = aloud;
  g_spoken.clear();
}

void StopSpeech() { Silence(); }

bool IsVoiceOn() { return g_on; }

const std::vector<std::string>& Spoken() { return g_spoken; }

}  // namespace desktop

using namespace desktop;

void elm_access_force_stop() {
  Gate::Run(op::elm_access_force_stop, Entry(), [](Entry&) { Silence(); });
}

// The toolkit's screen reader wants every press twice and speaks English in between: it stays off, and these two, in
// place of the toolkit's own, belong to the TV's.

Eina_Bool elm_config_access_get() { return IsVoiceOn(); }

void elm_access_say(const char* text) {
  if (IsVoiceOn() && text) Read(text);
}

void elm_access_force_say(const char* text) {
  Gate::Run(op::elm_access_force_say, Entry(text), [&](Entry&) { Silence(); });
  Read(text);
}
