#include <unistd.h>

#include <cstdio>
#include <ctime>

#include "Gate.h"
#include "Keys.h"
#include "Notices.h"
#include "Profile.h"
#include "Schema.h"
#include "Text.h"
#include "Usb.h"
#include "Verbs.h"
#include "settings_api.h"
#include "tvs/TvProfile.h"

using namespace desktop;

namespace {

constexpr useconds_t kFollowPause = 100'000;

// --- the TV itself -------------------------------------------------------------------------------

int New(const Arguments& arguments) {
  TvOptions options;
  bool replace = false;
  for (size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--force") {
      replace = true;
    } else if (arguments[i] == "--services") {
      options.services = Number(i + 1 < arguments.size() ? arguments[++i] : "", "--services", 0, kMostServices);
    } else if (options.profile.empty() && !arguments[i].starts_with("-")) {
      options.profile = arguments[i];
    } else {
      throw WordError("'" + arguments[i] + "': usage: quirelle-tv new PROFILE [--services N] [--force]");
    }
  }
  if (options.profile.empty()) throw WordError("a profile is missing; quirelle-tv profiles names them");
  for (const std::string& skipped : MakeTv(g_tv, options, replace)) {
    std::fprintf(stderr, "quirelle-tv: %s\n", skipped.c_str());
  }
  std::printf("%s: a TV of profile %s\n", g_tv.c_str(), options.profile.c_str());
  return 0;
}

int ListProfiles(const Arguments& arguments) {
  Want(arguments, 0, 0, "profiles");
  for (const auto& [name, what] : Profiles()) std::printf("%-10s %s\n", name.c_str(), what.c_str());
  return 0;
}

int PowerCycle(const Arguments& arguments) {
  Want(arguments, 0, 0, "power-cycle");
  Query q("SELECT value FROM meta WHERE key = 'boot'");
  PowerOn(Store::Get(), q.Row() ? q.Text(0) : "");
  return 0;
}

// --- settings ------------------------------------------------------------------------------------

/// Type of a key; empty when the TV does not have it.
std::string TypeOf(const std::string& key) {
  Query q("SELECT type FROM setting WHERE key = ?", key);
  return q.Row() ? q.Text(0) : std::string();
}

std::string KnownType(const std::string& key) {
  std::string type = TypeOf(key);
  if (type.empty()) throw std::runtime_error(g_tv + ": no key '" + key + "'");
  return type;
}

int Get(const Arguments& arguments) {
  Want(arguments, 1, 1, "get KEY");
  const std::string type = KnownType(arguments[0]);
  Query q("SELECT value FROM setting WHERE key = ?", arguments[0]);
  q.Row();
  std::puts(type == "bool" ? (q.Int(0) ? "true" : "false") : q.Text(0).c_str());
  return 0;
}

int ParseBool(const std::string& key, const std::string& word) {
  if (word == "true" || word == "1") return 1;
  if (word == "false" || word == "0") return 0;
  throw WordError(key + " '" + word + "': wants true or false");
}

int Set(const Arguments& arguments) {
  Want(arguments, 2, 2, "set KEY VALUE");
  const std::string &key = arguments[0], &value = arguments[1];
  const std::string type = KnownType(key);
  const auto write = [&](const auto& parsed) {
    Store::Get().Write([&] { Query("UPDATE setting SET value = ? WHERE key = ?", parsed, key).Run(); });
  };
  if (type == "int") {
    write(static_cast<int64_t>(Number(value, key, INT32_MIN, INT32_MAX)));
  } else if (type == "bool") {
    write(ParseBool(key, value));
  } else {
    write(value);
  }
  return 0;
}

int Settings(const Arguments& arguments) {
  Want(arguments, 0, 1, "settings [PREFIX]");
  const std::string prefix = arguments.empty() ? "" : arguments[0];
  Query q("SELECT key, type, value FROM setting WHERE substr(key, 1, length(?1)) = ?1 ORDER BY key", prefix);
  while (q.Row()) std::printf("%-6s %s = %s\n", q.Text(1).c_str(), q.Text(0).c_str(), q.Text(2).c_str());
  return 0;
}

int Item(const Arguments& arguments) {
  Want(arguments, 1, 2, "item ID [VALUE]");
  const std::string& id = arguments[0];
  std::string name, value;
  if (!SettingsAPI::Get()->GetItemValue(id, name, value)) throw std::runtime_error(g_tv + ": no item '" + id + "'");
  if (arguments.size() == 1) {
    std::puts(value.c_str());
  } else if (SettingsAPI::Get()->SetItemValue(id, arguments[1], false) != 1) {
    throw std::runtime_error(g_tv + ": item '" + id + "' cannot be set");
  }
  return 0;
}

// --- faults and the journal ----------------------------------------------------------------------

int ListOperations() {
  for (const Operation* operation : Operations()) {
    if (operation->failures.empty()) continue;
    std::string results;
    for (const char* failure : operation->failures) results += std::string(results.empty() ? "" : ", ") + failure;
    std::printf("%-44s %s\n", operation->name, results.c_str());
  }
  return 0;
}

const Operation& KnownOperation(const std::string& name) {
  const Operation* operation = FindOperation(name);
  if (!operation) throw WordError("unknown operation '" + name + "'; quirelle-tv fail --list names them");
  if (operation->failures.empty()) throw WordError("operation '" + name + "' cannot fail");
  return *operation;
}

/// A result is null or false where the operation answers those, otherwise a number.
void CheckResult(const Operation& operation, const std::string& result) {
  const std::string first = operation.failures.front();
  if (first == "null" || first == "false") {
    if (result != first) throw WordError(std::string(operation.name) + " '" + result + "': fails with " + first);
  } else {
    Number(result, operation.name, INT32_MIN, INT32_MAX);
  }
}

int Fail(const Arguments& arguments) {
  if (arguments.size() == 1 && arguments[0] == "--list") return ListOperations();
  Arguments words;
  int64_t times = 0;
  for (size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--times") {
      times = Number(i + 1 < arguments.size() ? arguments[++i] : "", "--times", 1, INT32_MAX);
    } else {
      words.push_back(arguments[i]);
    }
  }
  Want(words, 1, 2, "fail OPERATION [RESULT] [--times N] | fail --list");
  const Operation& operation = KnownOperation(words[0]);
  const std::string result = words.size() > 1 ? words[1] : operation.failures.front();
  CheckResult(operation, result);
  Store::Get().Write([&] {
    Query q("REPLACE INTO fault VALUES (?, ?, ?)", operation.name, result);
    if (times > 0) {
      q.Bind(static_cast<int64_t>(times));
    } else {
      q.Bind(nullptr);
    }
    q.Run();
  });
  return 0;
}

int Heal(const Arguments& arguments) {
  Want(arguments, 0, 1, "heal [OPERATION]");
  if (!arguments.empty()) KnownOperation(arguments[0]);
  Store::Get().Write([&] {
    if (arguments.empty()) {
      Query("DELETE FROM fault").Run();
    } else {
      Query("DELETE FROM fault WHERE operation = ?", arguments[0]).Run();
    }
  });
  return 0;
}

void PrintJournal(int64_t& last) {
  Query q("SELECT seq, at, pid, operation, arguments, result, outputs FROM journal WHERE seq > ? ORDER BY seq", last);
  while (q.Row()) {
    last = q.Int(0);
    const time_t at = q.Int(1) / 1000;
    tm local;
    localtime_r(&at, &local);
    char time[16];
    strftime(time, sizeof time, "%T", &local);
    const std::string outputs = q.Text(6);
    std::printf("%s.%03d %lld %s(%s) = %s%s%s\n", time, static_cast<int>(q.Int(1) % 1000),
                static_cast<long long>(q.Int(2)), q.Text(3).c_str(), q.Text(4).c_str(), q.Text(5).c_str(),
                outputs.empty() ? "" : " -> ", outputs.c_str());
  }
  std::fflush(stdout);
}

int Journal(const Arguments& arguments) {
  const bool follow = arguments.size() == 1 && arguments[0] == "--follow";
  if (!follow) Want(arguments, 0, 0, "journal [--follow]");
  int64_t last = 0;
  PrintJournal(last);
  while (follow && !std::ferror(stdout)) {
    usleep(kFollowPause);
    PrintJournal(last);
  }
  return 0;
}

int Usage(const Arguments& arguments) {
  Want(arguments, 0, 0, "usage");
  Query q("SELECT log, category, event, description FROM usage ORDER BY seq");
  while (q.Row()) {
    std::printf("%s %s %s %s\n", q.Text(0).c_str(), q.Text(1).c_str(), q.Text(2).c_str(), q.Text(3).c_str());
  }
  return 0;
}

// --- sticks -------------------------------------------------------------------------------------

int Plug(const Arguments& arguments) {
  Want(arguments, 1, 1, "plug NAME");
  PlugStick(arguments[0]);
  return 0;
}

int Unplug(const Arguments& arguments) {
  Want(arguments, 1, 1, "unplug NAME");
  UnplugStick(arguments[0]);
  return 0;
}

int Sticks(const Arguments& arguments) {
  Want(arguments, 0, 0, "sticks");
  for (const auto& stick : UsbSticks()) std::puts(stick.filename().c_str());
  return 0;
}

// --- the running program -------------------------------------------------------------------------

int Notify(const std::string& notice) {
  if (SendNotice(notice) == 0) throw std::runtime_error(g_tv + ": no program runs on this TV");
  return 0;
}

int Key(const Arguments& arguments) {
  Want(arguments, 1, SIZE_MAX, "key KEY...");
  for (const std::string& key : arguments) {
    if (!RemoteKey(key)) throw WordError("key '" + key + "': no key of the remote");
  }
  for (const std::string& key : arguments) Notify("key " + key);
  return 0;
}

int Launch(const Arguments& arguments) {
  Want(arguments, 1, 1, "launch MENU-ID");
  return Notify("launch " + arguments[0]);
}

int Pause(const Arguments& arguments) {
  Want(arguments, 0, 0, "pause");
  return Notify("pause");
}

int Resume(const Arguments& arguments) {
  Want(arguments, 0, 0, "resume");
  return Notify("resume");
}

int RunningState(const Arguments& arguments, int running, const char* usage) {
  Want(arguments, 1, 1, usage);
  Store::Get().Write([&] { Query("REPLACE INTO application VALUES (?, ?)", arguments[0], running).Run(); });
  return 0;
}

constexpr Verb kVerbs[] = {
    {"new", "new PROFILE [--services N] [--force]", "makes a TV; --force in place of one that is there", false, New},
    {"profiles", "profiles", "lists what TVs there are to make", false, ListProfiles},
    {"power-cycle", "power-cycle", "memory/... keys go back to what the set comes up with", true, PowerCycle},
    {"get", "get KEY", "a key of the settings store, a feature or system-information key", true, Get},
    {"set", "set KEY VALUE", "changes one", true, Set},
    {"settings", "settings [PREFIX]", "lists the keys", true, Settings},
    {"item", "item ID [VALUE]", "the value of a settings-tree item, or changes it", true, Item},
    {"fail", "fail OPERATION [RESULT] [--times N]", "makes an operation fail; fail --list names them", true, Fail},
    {"heal", "heal [OPERATION]", "takes faults back", true, Heal},
    {"journal", "journal [--follow]", "every operation that a program made", true, Journal},
    {"usage", "usage", "the usage log", true, Usage},
    {"plug", "plug NAME", "a USB stick comes: the folder FILE.sticks/NAME", true, Plug},
    {"unplug", "unplug NAME", "it goes, and keeps what is on it", true, Unplug},
    {"sticks", "sticks", "lists the sticks that are there", true, Sticks},
    {"key", "key KEY...", "presses keys on the running program", true, Key},
    {"launch", "launch MENU-ID", "sends the running program another launch request", true, Launch},
    {"pause", "pause", "pauses the running program", true, Pause},
    {"resume", "resume", "resumes it", true, Resume},
    {"start", "start APPLICATION", "another application of the set runs from now on", true,
     [](const Arguments& a) { return RunningState(a, 1, "start APPLICATION"); }},
    {"stop", "stop APPLICATION", "it does no longer", true,
     [](const Arguments& a) { return RunningState(a, 0, "stop APPLICATION"); }},
};

}  // namespace

std::span<const Verb> SetVerbs() { return kVerbs; }
