// Every window worked by a person who sees nothing: the walk goes by what has been said, and nothing else. What the
// screen holds is asked only to judge whether all of it was heard.
#include <algorithm>
#include <deque>
#include <fstream>
#include <iostream>
#include <map>
#include <regex>
#include <set>

#include "Harness.h"
#include "Translation.h"
#include "ViewTable.h"

using test::Remote;
using test::Texts;
using test::Tv;

namespace {

struct Room {
  const char *profile, *language;
  bool hasSticks;
};
constexpr Room kRooms[] = {
    {"america", "en_US.utf8", true}, {"europe", "ar_AE.utf8", true}, {"hdmi", "de_DE.utf8", false}};
constexpr const char* kKeys[] = {"Return", "Down", "Up", "Left", "Right"};
/// Until all is said that a key has caused.
constexpr double kSpeechSeconds = 0.6;
/// More than the largest window takes: a walk that goes on has found places without end.
constexpr int kMostPresses = 800;
constexpr const char* kClosed = "closed";

/// Letters as they are heard: without breaks, marks of direction and the seconds that a button counts.
std::string Sound(const std::string& text) {
  static const std::regex silent("\u200e|\u200f|( \\(\\d+\\)$)"), blanks(R"(\s+)");
  return std::regex_replace(std::regex_replace(text, silent, ""), blanks, " ");
}

/// Without what may differ between the eye and the ear: figures, and how a label is parted from its value.
std::string WordsOf(const std::string& text) {
  static const std::regex others(R"([-+*:,.%\d]+)"), blanks(" +"), ends("^ | $");
  return std::regex_replace(std::regex_replace(std::regex_replace(Sound(text), others, " "), blanks, " "), ends, "");
}

/// By ear, a place is what is said there, whatever the figures and the state.
std::string PlaceOf(const std::string& text) {
  static const std::regex figures(R"([-+]?\d+)"), position(R"(\d+ \S+ \d+$)");
  std::string place = std::regex_replace(text, figures, "#");
  std::smatch found;
  if (std::regex_search(text, found, position)) place += found.str();
  for (const std::string& word : {T("SID_ON"), T("SID_OFF"), T("COM_SID_SECURITY_ON"), T("COM_SID_SECURITY_OFF"),
                                  Filled("COM_SID_MIX_A_MORE_CHANGED", "#")}) {
    const std::string state = ", " + word;
    const size_t at = place.find(state), end = at + state.size();
    if (at != std::string::npos && (end == place.size() || place[end] == ',')) place.erase(at, state.size());
  }
  return place;
}

/// The English texts of the catalogue by their IDs.
std::map<std::string, std::string> EnglishTexts() {
  std::ifstream file(SOURCE_DIRECTORY "/po/en.po");
  std::map<std::string, std::string> texts;
  static const std::regex quoted(R"re((msgid|msgstr) "(.+)")re");
  std::smatch found;
  for (std::string line, id; std::getline(file, line);) {
    if (std::regex_match(line, found, quoted)) (found[1] == "msgid" ? id : texts[id]) = found[2];
  }
  return texts;
}

void ExpectMenuLanguage(const std::string& text) {
  static const std::map<std::string, std::string> all = EnglishTexts();
  static const std::regex markup(R"(<|&#|&\w+;|SID_)");
  EXPECT_FALSE(std::regex_search(text, markup)) << text;
  for (const auto& [id, english] : all) {
    if (T(id).find(english) != std::string::npos) continue;
    const bool isSentence = english.find(' ') != std::string::npos;
    const std::string sought = isSentence ? english : ", " + english + ", ";
    EXPECT_EQ((", " + text + ", ").find(sought), std::string::npos) << id << " is English in: " << text;
  }
}

/// What nobody may change without a word: where the focus is, what is ticked, which view is there.
std::string StateOf(const Json::Value& screen) {
  std::string state = Sound(screen["focus"].asString());
  for (const char* member : {"stack", "checks"}) state += screen[member].toStyledString();
  for (const Json::Value& row : screen["rows"]) state += row["on"].asString();
  return state;
}

class Listener {
 public:
  explicit Listener(const char* menuID) : m_menuID(menuID) {}

  /// Through every place that a key leads to, in as many runs of the program as that takes.
  void Walk() {
    for (bool more = true; more;) {
      test::Run({m_menuID}, [&](Remote& remote) {
        more = m_Walk(remote);
        for (const std::string& error : test::TakeGraveToolkitErrors()) ADD_FAILURE() << m_at << ": " << error;
      });
    }
    EXPECT_LT(m_presses, kMostPresses) << "places without end at " << m_at;
  }
  void ExpectAllHeard() const;
  size_t Count() const { return m_heard.size(); }

 private:
  bool m_Walk(Remote& remote);
  Texts m_Listen(Remote& remote);
  std::string m_NextKey();
  void m_Note(const Json::Value& screen);
  void m_Judge(const Json::Value& before, const Json::Value& after, const Texts& news) const;

  const char* m_menuID;
  int m_presses = 0;
  /// Of the texts of this run.
  size_t m_listened = 0;
  std::string m_at;
  /// Where each key has led from each place.
  std::map<std::string, std::map<std::string, std::string>> m_paths;
  std::set<std::string> m_heard, m_names, m_texts;
  std::map<std::string, std::set<std::string>> m_rows;
};

/// What has been said since it was last listened.
Texts Listener::m_Listen(Remote& remote) {
  remote.Wait(kSpeechSeconds);
  const Texts all = remote.Spoken();
  Texts news;
  for (; m_listened < all.size(); ++m_listened) {
    news.push_back(Sound(all[m_listened]));
    if (m_heard.insert(news.back()).second) ExpectMenuLanguage(news.back());
  }
  return news;
}

/// The first key of the shortest way to a place with a key that was not tried; "" when there is none.
std::string Listener::m_NextKey() {
  std::deque<std::pair<std::string, std::string>> ways = {{m_at, ""}};
  for (std::set<std::string> seen; !ways.empty(); ways.pop_front()) {
    const auto [place, first] = ways.front();
    if (place == kClosed || !seen.insert(place).second) continue;
    for (const char* key : kKeys) {
      const auto to = m_paths[place].find(key);
      if (to == m_paths[place].end()) return first.empty() ? key : first;
      ways.emplace_back(to->second, first.empty() ? key : first);
    }
  }
  return {};
}

void Listener::m_Note(const Json::Value& screen) {
  for (const Json::Value& text : screen["texts"]) m_texts.insert(text.asString());
  for (const Json::Value& button : screen["buttons"]) m_names.insert(button["text"].asString());
  for (const Json::Value& check : screen["checks"]) m_names.insert(check["name"].asString());
  for (const Json::Value& row : screen["rows"]) m_rows[row["text"].asString()].insert(row["value"].asString());
}

bool IsSaid(const std::string& text, const Texts& news) {
  return std::any_of(news.begin(), news.end(),
                     [&](const std::string& said) { return said.find(text) != std::string::npos; });
}

/// Nothing twice, and what has the focus now, or has changed there.
void Listener::m_Judge(const Json::Value& before, const Json::Value& after, const Texts& news) const {
  for (size_t i = 1; i < news.size(); ++i)
    EXPECT_FALSE(IsSaid(news[i], Texts(news.begin(), news.begin() + i))) << "twice";
  if (StateOf(before) == StateOf(after)) return;
  EXPECT_FALSE(news.empty()) << "silent";
  const std::string focus = Sound(after["focus"].asString());
  if (focus == Sound(before["focus"].asString())) return;
  EXPECT_TRUE(IsSaid(focus, news)) << "said is not \"" << focus << "\" but " << testing::PrintToString(news);
}

/// True when there is more to walk through in another run.
bool Listener::m_Walk(Remote& remote) {
  m_listened = 0;
  const Texts opening = m_Listen(remote);
  // A TV that has nothing to show opens nothing.
  EXPECT_EQ(opening.empty(), remote.Texts().empty()) << "opens without a word";
  if (opening.empty()) return false;
  const std::string start = m_at = PlaceOf(opening.back());
  for (Json::Value before = remote.Screen(), after; m_presses < kMostPresses; before = after) {
    m_Note(before);
    const std::string key = m_NextKey();
    if (key.empty()) return m_at != start;
    SCOPED_TRACE("at \"" + m_at + "\" " + key);
    std::string& to = m_paths[m_at][key];
    remote.Press(key);
    ++m_presses;
    Texts news = m_Listen(remote);
    if (remote.HasExited()) {
      EXPECT_FALSE(m_at.starts_with(T("SID_SAVE")) && news.empty()) << "what was saved?";
      to = kClosed;
      return true;
    }
    after = remote.Screen();
    // What ends by itself may do so while the key is listened for.
    if (StateOf(after) != StateOf(before) && !IsSaid(Sound(after["focus"].asString()), news)) {
      for (const std::string& text : m_Listen(remote)) news.push_back(text);
      after = remote.Screen();
    }
    m_Judge(before, after, news);
    m_at = to = news.empty() ? m_at : PlaceOf(news.back());
  }
  return false;
}

/// What was on the screen: words, names, and rows with one of the values that each had.
void Listener::ExpectAllHeard() const {
  std::string sounds, words;
  for (const std::string& heard : m_heard) {
    sounds += heard + ", \n";
    words += WordsOf(heard) + "\n";
  }
  for (const std::string& text : m_texts) EXPECT_NE(words.find(WordsOf(text)), std::string::npos) << "unsaid: " << text;
  for (const std::string& name : m_names) EXPECT_NE(sounds.find(Sound(name)), std::string::npos) << "unsaid: " << name;
  for (const auto& [row, values] : m_rows) {
    EXPECT_TRUE(std::any_of(values.begin(), values.end(),
                            [&, &name = row](const std::string& value) {
                              return sounds.find(Sound(name + ", " + value)) != std::string::npos;
                            }))
        << "unsaid: " << row << " with any of " << testing::PrintToString(values);
  }
}

TEST(ByEar, NothingIsLeftUnsaid) {
  int windows = 0;
  size_t texts = 0;
  for (const Room& room : kRooms) {
    for (const ViewEntry& entry : ViewTable()) {
      if (!entry.make) continue;
      SCOPED_TRACE(std::string(entry.menuID) + " " + room.profile + " " + room.language);
      Tv tv(room.profile);
      tv.TurnVoiceOn();
      tv.SetLanguage(room.language);
      // One satellite is like another.
      test::Change("DELETE FROM satellite WHERE id > (SELECT min(id) + 5 FROM satellite)");
      for (const char* stick : {"A", "B"}) {
        if (room.hasSticks) tv.PutOnStick(stick, {"one.zip", "two.zip"});
      }
      Listener listener(entry.menuID);
      listener.Walk();
      listener.ExpectAllHeard();
      ++windows;
      texts += listener.Count();
    }
  }
  std::cout << "by ear: " << windows << " windows, " << texts << " texts" << std::endl;
}

/// What is said from now on until `seconds` have passed.
Texts Hear(Remote& remote, const char* keys, int seconds) {
  const size_t before = remote.Spoken().size();
  remote.Press(keys);
  for (int second = 0; second < seconds; ++second) remote.Wait(1);
  const Texts all = remote.Spoken();
  return {all.begin() + static_cast<long>(before), all.end()};
}

TEST(ByEar, ANewChannelIsToldAndThenWhatItsTunerHasFound) {
  for (const char* profile : {"america", "europe", "brazil"}) {
    Tv tv(profile);
    tv.TurnVoiceOn();
    test::Run({"signal-information"}, [&](Remote& remote) {
      remote.Wait(3);
      for (const char* key : {"XF86RaiseChannel", "XF86LowerChannel"}) {
        SCOPED_TRACE(std::string(profile) + " " + key);
        const Texts news = Hear(remote, key, 8);
        ASSERT_EQ(news.size(), 2U) << testing::PrintToString(news);
        for (const auto& [name, value] : remote.Rows()) {
          if (value == "----") continue;
          const std::string said = name + " " + value;
          EXPECT_EQ((news[0] + ", ").find(said + ", ") != std::string::npos,
                    (news[1] + ", ").find(said + ", ") == std::string::npos)
              << said << " is to be said once by " << testing::PrintToString(news);
        }
      }
    });
  }
}

TEST(ByEar, AQuickHandHearsOnlyWhereItStops) {
  Tv tv;
  tv.TurnVoiceOn();
  for (const auto& [menuID, last] :
       {std::pair{"movie-rating", "R, Unlocked, 4 of 7"}, {"tv-rating", "All, TV-PG, Unlocked"}}) {
    test::Run({menuID}, [&, &stop = last](Remote& remote) {
      remote.Wait(1);
      EXPECT_EQ(Hear(remote, "Down Down Down", 1), Texts{stop});
    });
  }
}

}  // namespace
