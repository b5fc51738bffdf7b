// The real program in this process, off screen, on a TV made for the test: press keys, move the clock, ask
// what is on the screen, in the store, in the journal.
#pragma once

#include <Evas.h>
#include <gtest/gtest.h>
#include <json/value.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Store.h"
#include "TemporaryDirectory.h"

class CViewManager;
class IEventData;
class IView;

namespace test {

using Texts = std::vector<std::string>;

/// A key so many times.
std::string Times(const std::string& key, int times);

/// One call that the program made of the platform.
struct Call {
  std::string operation, arguments, result;
};

/// A TV for one test, open in this process.
class Tv {
 public:
  /// With so many channels; -1 as many as the profile says.
  explicit Tv(const std::string& profile = "america", long services = -1);
  ~Tv();

  std::string Path() const;
  /// A key of the settings store in its text form; set without the program's own operations.
  std::string Get(const std::string& key);
  void Set(const std::string& key, const std::string& value);
  void Remove(const std::string& key);
  /// "en_US.utf8" and the like.
  void SetLanguage(const std::string& language) { Set("db/menu_widget/language", language); }
  void TurnVoiceOn() { Set("db/setting/accessibility/tts", "1"); }
  /// Value of an item of the settings tree.
  std::string Item(const std::string& id);
  void SetItem(const std::string& id, const std::string& value);
  /// Files on a stick, which is plugged in with its first one.
  void PutOnStick(const std::string& stick, const Texts& files);
  int GetInt(const std::string& key) { return std::stoi(Get(key)); }

  void Fail(const std::string& operation, const std::string& result = "", int times = 0);
  void Heal();
  /// Everything in the journal, or the calls of one operation.
  std::vector<Call> Journal(const std::string& operation = "");
  size_t Calls(const std::string& operation) { return Journal(operation).size(); }
  Texts ArgumentsOf(const std::string& operation);
  void ClearJournal();
  /// What was asked of the key router about a key: "+" it is taken, "-" it is given back.
  std::string Requests(const std::string& key);

 private:
  TemporaryDirectory m_directory;
};

/// A statement on the TV's file, past its operations.
template <class... Values>
void Change(const std::string& sql, const Values&... values) {
  desktop::Store::Get().Write([&] { desktop::Query(sql, values...).Run(); });
}

/// The first field of what a query on the TV's file finds; "" when it finds nothing.
template <class... Values>
std::string Ask(const std::string& sql, const Values&... values) {
  desktop::Query query(sql, values...);
  return query.Row() ? query.Text(0) : "";
}

/// Where something lies on the screen.
struct Place {
  int x, y, w, h;
};

/// The program that runs, as a person before the TV has it.
class Remote {
 public:
  /// Keys of the remote, separated by blanks; the program comes to rest after each.
  void Press(const std::string& keys);
  void Wait(double seconds);
  void Settle();

  /// What is seen and heard; see the command line's --dump.
  Json::Value Screen();
  std::string Focus();
  test::Texts Stack();
  test::Texts Spoken();
  test::Texts Texts();
  std::string Title();
  /// What the buttons say.
  test::Texts Buttons();
  /// Text and value of each row in sight.
  std::vector<std::pair<std::string, std::string>> Rows();
  test::Texts RowTexts();
  std::string ValueOf(const std::string& row);
  /// Presses, and compares what has the focus then.
  void ExpectFocus(const std::string& keys, const std::string& focus);
  /// Presses, and the program ends with it.
  void ExpectExit(const std::string& keys);
  /// What was spoken, without what is no word.
  test::Texts Sayings();
  /// Presses, waits until the voice guide has spoken, and compares its last words.
  void ExpectSaid(const std::string& keys, const std::string& words);
  /// Whether one of the texts is on the screen, and whether it was spoken: the whole text.
  bool Shows(const std::string& text);
  bool Heard(const std::string& text);
  /// The list in sight; null without one.
  Evas_Object* List();
  /// Of the check box, button or text with this name.
  Place PlaceOf(const std::string& name);
  /// Colour of the screen at a place, as 0xAARRGGBB.
  unsigned int ColourAt(int x, int y);
  bool HasExited();
  /// The framework ends the program, as when the set is switched off: its views are still there.
  void End();
  void TakeFocus();
  void Pause();
  void Resume();
  void Launch(const std::string& menuID);
  /// An event as the program's own parts send it.
  void Post(int type, long first = 0, long second = 0, IEventData* data = nullptr);
  /// Takes the uppermost view off, and leaves the program running without any.
  void Pop();
  /// What opens beside a row at this place, as a window asks for it.
  void OpenControl(const std::string& id, int x = 400, int y = 300, int w = 800);
  /// Puts a view of the test's own on top of the stack, which owns it from then on.
  template <class View>
  View* Push(std::unique_ptr<View> view) {
    View* raw = view.release();
    PushView(raw);
    return raw;
  }

 private:
  void PushView(IView* view);
};

using Body = std::function<void(Remote&)>;

/// Runs the program with these words on its command line until `body` has returned. An error that the
/// toolkit reports fails the test.
void Run(const std::vector<std::string>& words, const Body& body);
/// What the toolkit has reported so far; a test that provokes an error takes it here.
Texts TakeToolkitErrors();
/// Whether something in a view has the focus.
bool HasFocus();
/// Objects on the screen, shown or not: what a view leaves behind stays until the program ends.
size_t CountObjects();
/// The same without the complaint that the focus could not be handed on, as long as something in a view has it or there
/// is no view any more: the toolkit makes it of a list that opens on its last row, which gets the focus all the same.
Texts TakeGraveToolkitErrors();

/// Texts of the program's log since the test began, oldest first, without file, function and line.
Texts Log();
bool Logged(const std::string& text);
void ClearLog();

/// What a program that was run in a process of its own said.
struct Outcome {
  int status;
  std::string output, errors;
};
/// Runs a program of the build ("quirelle", "quirelle-tv"), or the one at a path, to its end; `environment` as
/// NAME=VALUE.
Outcome Execute(const std::string& program, const std::vector<std::string>& words,
                const std::vector<std::string>& environment = {});

}  // namespace test
