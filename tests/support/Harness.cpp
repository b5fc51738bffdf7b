#define EFL_BETA_API_SUPPORT

#include "Harness.h"

#include <Ecore_Evas.h>
#include <Efl_Core.h>
#include <Elementary.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <sstream>
#include <utility>

#include "AppMain.h"
#include "Application.h"
#include "CacheManager.h"
#include "Clock.h"
#include "DeviceManager.h"
#include "Dump.h"
#include "EventManager.h"
#include "Gate.h"
#include "Keys.h"
#include "LogOutput.h"
#include "MenuControl.h"
#include "Profile.h"
#include "RootWindow.h"
#include "Screen.h"
#include "Usb.h"
#include "Utils.h"
#include "View.h"
#include "ViewManager.h"
#include "VoiceGuide.h"
#include "WrapPatterns.h"
#include "config.h"
#include "dlog.h"

/// Making a window asks the toolkit for frames from a thread, if only for a moment. Between two runs in one process
/// that starts the thread, which minds a moved clock. A program's own functions come before a library's.
extern "C" __attribute__((visibility("default"))) void ecore_animator_source_set(Ecore_Animator_Source) {
  using SetSource = void (*)(Ecore_Animator_Source);
  static const auto setSource = reinterpret_cast<SetSource>(dlsym(RTLD_NEXT, "ecore_animator_source_set"));
  setSource(ECORE_ANIMATOR_SOURCE_CUSTOM);
}

/// Lets the tests put a view of their own on the stack, which only the view manager does otherwise.
bool PushOnStack(CViewManager* manager, IView* view);
template <bool (CViewManager::*Push)(IView*)>
struct PushOpener {
  friend bool PushOnStack(CViewManager* manager, IView* view) { return (manager->*Push)(view); }
};
template struct PushOpener<&CViewManager::t_PushView>;

namespace test {

namespace {

/// The program logs from its threads too.
std::mutex g_logMutex;
Texts g_log;
Texts g_toolkitErrors;

void TakeLogLine(int, const char* text) {
  std::string line = text;
  if (!line.empty() && line.back() == '\n') line.pop_back();
  const size_t head = line.find(" > ");
  const std::lock_guard lock(g_logMutex);
  g_log.push_back(head == std::string::npos ? line : line.substr(head + 3));
}

void TakeToolkitLine(const Eina_Log_Domain* domain, Eina_Log_Level level, const char* file, const char* function,
                     int line, const char* format, void*, va_list arguments) {
  if (level > EINA_LOG_LEVEL_ERR) return;
  char text[1024];
  vsnprintf(text, sizeof text, format, arguments);
  g_toolkitErrors.push_back(std::string(domain->domain_str) + ": " + file + ":" + std::to_string(line) + " " +
                            function + ": " + text);
}

/// What a process has once is made anew for each run of the program in this one.
void ForgetProcess() {
  quirelle::isAnyWindowActive = false;
  delete Singleton<MenuControl>::m_pSingleton;
  Singleton<MenuControl>::m_pSingleton = nullptr;
  delete Singleton<MenuConfig>::m_pSingleton;
  Singleton<MenuConfig>::m_pSingleton = nullptr;
  CVoiceGuide::ReleaseInstance();
  CCacheManager::FlushCache();
  CRootWindow::DeleteWindow();
}

/// A program that a test leaves running would leave its key handlers to the next one.
void EndProgram(desktop::Application& application) {
  if (application.HasExited()) return;
  CEventManager::GetInstance()->SendEvent(EVENT_EXIT_APP, 0, 0, nullptr, nullptr);
  application.Settle();
}

/// The program chooses a display and a language for its process; the programs that tests start choose their own.
class KeptEnvironment {
 public:
  KeptEnvironment() {
    for (char** variable = environ; *variable; ++variable) m_variables.emplace_back(*variable);
  }
  ~KeptEnvironment() {
    clearenv();
    for (const std::string& variable : m_variables) {
      const size_t equals = variable.find('=');
      setenv(variable.substr(0, equals).c_str(), variable.c_str() + equals + 1, 1);
    }
  }
  KeptEnvironment(const KeptEnvironment&) = delete;
  KeptEnvironment& operator=(const KeptEnvironment&) = delete;

 private:
  std::vector<std::string> m_variables;
};

/// The toolkit stays up from the first run to the end of the tests: it cannot be brought up twice.
void KeepToolkit() {
  static const bool kept = [] {
    elm_init(0, nullptr);
    eina_log_print_cb_set(TakeToolkitLine, nullptr);
    std::atexit([] { elm_shutdown(); });
    return true;
  }();
  static_cast<void>(kept);
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

bool IsA(const Evas_Object* object, const char* type) { return std::string_view(type) == evas_object_type_get(object); }

std::string NameOf(const Evas_Object* object) {
  const char* text = IsA(object, "elm_check") ? efl_access_object_i18n_name_get(object) : nullptr;
  const std::string name = text ? text : "";
  const char* shown = IsA(object, "elm_button") ? elm_object_text_get(object)
                      : IsA(object, "text")     ? evas_object_text_text_get(object)
                                                : nullptr;
  return shown ? shown : name;
}

using Wanted = std::function<bool(const Evas_Object*)>;

Evas_Object* FindBelow(Evas_Object* object, const Wanted& isWanted) {
  if (!evas_object_visible_get(object)) return nullptr;
  if (isWanted(object)) return object;
  if (!efl_isa(object, EFL_CANVAS_GROUP_CLASS)) return nullptr;
  Evas_Object* found = nullptr;
  Eina_List* members = evas_object_smart_members_get(object);
  void* member = nullptr;
  EINA_LIST_FREE(members, member) {
    if (!found) found = FindBelow(static_cast<Evas_Object*>(member), isWanted);
  }
  return found;
}

/// The uppermost one on the screen; null without one.
Evas_Object* Find(const Wanted& isWanted) {
  const Evas* canvas = evas_object_evas_get(desktop::Window());
  Evas_Object* found = nullptr;
  for (Evas_Object* o = evas_object_top_get(canvas); o && !found; o = evas_object_below_get(o)) {
    if (!evas_object_smart_parent_get(o)) found = FindBelow(o, isWanted);
  }
  return found;
}

Texts AsTexts(const Json::Value& array, const char* member = nullptr) {
  Texts texts;
  for (const Json::Value& entry : array) texts.push_back((member ? entry[member] : entry).asString());
  return texts;
}

bool Has(const Texts& texts, const std::string& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

// --- the TV --------------------------------------------------------------------------------------

Tv::Tv(const std::string& profile, long services) {
  desktop::MakeTv(Path(), {profile, services}, false);
  setenv("QUIRELLE_TV", Path().c_str(), 1);
  desktop::Store::Open(Path());
  desktop::LogToStandardError(desktop::LogLevel::kOff);
  desktop::WatchLog(TakeLogLine);
  ClearLog();
}

Tv::~Tv() {
  CDeviceManager::ReleaseInstance();
  desktop::Gate::FailNth(0, false);
  desktop::Gate::Watch(nullptr);
  desktop::WatchLog(nullptr);
  desktop::Store::Close();
}

std::string Tv::Path() const { return m_directory / "tv.db"; }

std::string Tv::Get(const std::string& key) {
  desktop::Query q("SELECT value FROM setting WHERE key = ?", key);
  if (!q.Row()) throw std::runtime_error("no key " + key);
  return q.Text(0);
}

void Tv::Set(const std::string& key, const std::string& value) {
  desktop::Store::Get().Write([&] {
    const int changed = desktop::Query(
                            "UPDATE setting SET value = CASE type WHEN 'string' THEN ?1 ELSE CAST(?1 AS INTEGER) END "
                            "WHERE key = ?2",
                            value, key)
                            .Run();
    if (changed != 1) throw std::runtime_error("no key " + key);
  });
}

void Tv::Remove(const std::string& key) { Change("DELETE FROM setting WHERE key = ?", key); }

std::string Tv::Item(const std::string& id) { return Ask("SELECT value FROM item WHERE id = ?", id); }

void Tv::SetItem(const std::string& id, const std::string& value) {
  Change("UPDATE item SET value = ? WHERE id = ?", value, id);
}

void Tv::PutOnStick(const std::string& stick, const Texts& files) {
  std::filesystem::create_directories(desktop::UsbDirectory() / stick);
  for (const std::string& file : files) {
    const std::filesystem::path path = desktop::UsbDirectory() / stick / file;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << "x";
  }
}

void Tv::Fail(const std::string& name, const std::string& result, int times) {
  const desktop::Operation* operation = desktop::FindOperation(name);
  if (!operation || operation->failures.empty()) throw std::runtime_error("operation " + name + " cannot fail");
  desktop::Store::Get().Write([&] {
    desktop::Query q("REPLACE INTO fault VALUES (?, ?, ?)", name, result.empty() ? operation->failures[0] : result);
    times > 0 ? q.Bind(times) : q.Bind(nullptr);
    q.Run();
  });
  desktop::Gate::FaultsChanged();
}

void Tv::Heal() {
  Change("DELETE FROM fault");
  desktop::Gate::FaultsChanged();
}

std::vector<Call> Tv::Journal(const std::string& operation) {
  desktop::Gate::Flush();
  std::vector<Call> calls;
  desktop::Query q("SELECT operation, arguments, result FROM journal WHERE ?1 = '' OR operation = ?1 ORDER BY seq",
                   operation);
  while (q.Row()) calls.push_back({q.Text(0), q.Text(1), q.Text(2)});
  return calls;
}

Texts Tv::ArgumentsOf(const std::string& operation) {
  Texts arguments;
  for (const Call& call : Journal(operation)) arguments.push_back(call.arguments);
  return arguments;
}

void Tv::ClearJournal() {
  desktop::Gate::Flush();
  Change("DELETE FROM journal");
}

std::string Tv::Requests(const std::string& key) {
  std::string asked;
  for (const Call& call : Journal()) {
    if (call.arguments.find(key) == std::string::npos) continue;
    if (call.operation == "KeyRouter_Set_KeyList") asked += "+";
    if (call.operation == "KeyRouter_UnSet_KeyList") asked += "-";
  }
  return asked;
}

std::string Times(const std::string& key, int times) {
  std::string keys;
  while (times-- > 0) keys += key + " ";
  return keys;
}

// --- the program ---------------------------------------------------------------------------------

void Remote::Press(const std::string& keys) {
  std::vector<desktop::Step> steps;
  std::string wrong;
  if (!desktop::ParseSteps(keys, steps, wrong)) throw std::runtime_error("no key " + wrong);
  for (const desktop::Step& step : steps) {
    desktop::PressKey(step.text.c_str());
    Settle();
  }
}

void Remote::Wait(double seconds) {
  desktop::Application::Current()->Wait(seconds);
  Settle();
}

void Remote::Settle() { desktop::Application::Current()->Settle(); }

Json::Value Remote::Screen() { return desktop::DumpScreen(); }

std::string Remote::Focus() {
  const Json::Value focus = Screen()["focus"];
  return focus.isNull() ? "" : focus.asString();
}

test::Texts Remote::Stack() { return AsTexts(Screen()["stack"]); }

test::Texts Remote::Spoken() { return AsTexts(Screen()["spoken"]); }

test::Texts Remote::Texts() { return AsTexts(Screen()["texts"]); }

std::string Remote::Title() { return Screen()["title"].asString(); }

test::Texts Remote::Buttons() { return AsTexts(Screen()["buttons"], "text"); }

std::vector<std::pair<std::string, std::string>> Remote::Rows() {
  std::vector<std::pair<std::string, std::string>> rows;
  const Json::Value screen = Screen();
  for (const Json::Value& row : screen["rows"]) rows.emplace_back(row["text"].asString(), row["value"].asString());
  return rows;
}

test::Texts Remote::RowTexts() { return AsTexts(Screen()["rows"], "text"); }

std::string Remote::ValueOf(const std::string& row) {
  for (const auto& [text, value] : Rows()) {
    if (text == row) return value;
  }
  throw std::runtime_error("no row " + row);
}

void Remote::ExpectFocus(const std::string& keys, const std::string& focus) {
  Press(keys);
  EXPECT_EQ(Focus(), focus) << "after " << keys;
}

void Remote::ExpectExit(const std::string& keys) {
  Press(keys);
  EXPECT_TRUE(HasExited()) << "after " << keys;
}

test::Texts Remote::Sayings() {
  test::Texts sayings = Spoken();
  std::erase_if(sayings, [](const std::string& text) { return text.find_first_not_of(" ,") == text.npos; });
  return sayings;
}

void Remote::ExpectSaid(const std::string& keys, const std::string& words) {
  Press(keys);
  Wait(1);
  const test::Texts sayings = Sayings();
  EXPECT_EQ(sayings.empty() ? "" : sayings.back(), words) << "after " << keys;
}

bool Remote::Shows(const std::string& text) { return Has(Texts(), text); }

bool Remote::Heard(const std::string& text) { return Has(Spoken(), text); }

Evas_Object* Remote::List() {
  return Find([](const Evas_Object* object) { return IsA(object, "elm_genlist"); });
}

Place Remote::PlaceOf(const std::string& name) {
  const Evas_Object* found = Find([&](const Evas_Object* object) { return NameOf(object) == name; });
  if (!found) throw std::runtime_error("nothing on the screen is named " + name);
  Place place{};
  evas_object_geometry_get(found, &place.x, &place.y, &place.w, &place.h);
  return place;
}

unsigned int Remote::ColourAt(int x, int y) {
  Ecore_Evas* canvas = ecore_evas_ecore_evas_get(evas_object_evas_get(desktop::Window()));
  ecore_evas_manual_render(canvas);
  int w = 0;
  ecore_evas_geometry_get(canvas, nullptr, nullptr, &w, nullptr);
  return static_cast<const unsigned int*>(ecore_evas_buffer_pixels_get(canvas))[y * w + x];
}

void Remote::OpenControl(const std::string& id, int x, int y, int w) {
  auto* place = new CEventPositionData(id.c_str());
  place->SetPositionData(x, y, w);
  Post(EVENT_PUSH_VIEW, 0, 0, place);
}

void Remote::PushView(IView* view) {
  PushOnStack(CViewManager::GetInstance(), view);
  Settle();
}

bool Remote::HasExited() { return desktop::Application::Current()->HasExited(); }

void Remote::End() { desktop::Application::Current()->Exit(); }

void Remote::TakeFocus() {
  desktop::TakeFocus();
  Settle();
}

void Remote::Pause() {
  desktop::Application::Current()->Pause();
  Settle();
}

void Remote::Resume() {
  desktop::Application::Current()->Resume();
  Settle();
}

void Remote::Launch(const std::string& menuID) {
  desktop::Application::Current()->Launch(menuID, {});
  Settle();
}

void Remote::Post(int type, long first, long second, IEventData* data) {
  CEventManager::GetInstance()->SendEvent(type, first, second, nullptr, data);
  Settle();
}

void Remote::Pop() { Post(EVENT_POP_VIEW, 1); }

void Run(const std::vector<std::string>& words, const Body& body) {
  const KeptEnvironment environment;
  g_toolkitErrors.clear();
  desktop::Application::SetClock(MoveClock);
  std::string theme;
  desktop::Application::SetDriver([&](desktop::Application& application) {
    KeepToolkit();
    elm_config_transition_duration_factor_set(0.0);
    theme = Utils::GetEDJFile();
    application.Settle();
    try {
      Remote remote;
      body(remote);
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    EndProgram(application);
  });

  std::vector<std::string> arguments = {"quirelle"};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  quirelle::main(static_cast<int>(pointers.size()), pointers.data());

  elm_theme_overlay_del(nullptr, theme.c_str());
  ForgetProcess();
  desktop::Store::Open(std::getenv("QUIRELLE_TV"));
  for (const std::string& error : g_toolkitErrors) ADD_FAILURE() << error;
}

Texts TakeToolkitErrors() { return std::exchange(g_toolkitErrors, {}); }

bool HasFocus() {
  const Evas_Object* focus = elm_object_focused_object_get(desktop::Window());
  return focus && focus != desktop::Window() && focus != CRootWindow::GetGround();
}

size_t CountObjects() {
  const auto count = [](Evas_Object* object, const auto& self) -> size_t {
    size_t objects = 1;
    if (!efl_isa(object, EFL_CANVAS_GROUP_CLASS)) return objects;
    Eina_List* members = evas_object_smart_members_get(object);
    void* member;
    EINA_LIST_FREE(members, member) objects += self(static_cast<Evas_Object*>(member), self);
    return objects;
  };
  size_t objects = 0;
  Evas_Object* object = evas_object_top_get(evas_object_evas_get(desktop::Window()));
  for (; object; object = evas_object_below_get(object)) objects += count(object, count);
  return objects;
}

Texts TakeGraveToolkitErrors() {
  Texts errors = TakeToolkitErrors();
  if (desktop::Window() && !Remote().Stack().empty() && !HasFocus()) return errors;
  std::erase_if(errors, [](const std::string& error) { return error.find("Could not fetch a node") != error.npos; });
  return errors;
}

Texts Log() {
  const std::lock_guard lock(g_logMutex);
  return g_log;
}

bool Logged(const std::string& text) { return Has(Log(), text); }

void ClearLog() {
  const std::lock_guard lock(g_logMutex);
  g_log.clear();
}

// --- other processes -----------------------------------------------------------------------------

Outcome Execute(const std::string& program, const std::vector<std::string>& words,
                const std::vector<std::string>& environment) {
  const TemporaryDirectory directory;
  const std::string output = directory / "output", errors = directory / "errors";
  const pid_t child = fork();
  if (child == 0) {
    dup2(open(output.c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
    dup2(open(errors.c_str(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
    for (const std::string& variable : environment) putenv(strdup(variable.c_str()));
    const std::string path = program[0] == '/' ? program : std::string(BUILD_DIRECTORY) + "/" + program;
    std::vector<char*> arguments = {const_cast<char*>(path.c_str())};
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execv(path.c_str(), arguments.data());
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), ReadFile(output), ReadFile(errors)};
}

}  // namespace test
