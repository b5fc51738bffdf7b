// What code and theme, texts and catalogues, and the lists of windows have to agree on.
#define EDJE_EDIT_IS_UNSTABLE_AND_I_KNOW_ABOUT_IT

#include <Edje_Edit.h>
#include <Elementary.h>

#include <cmath>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "Harness.h"
#include "Profile.h"
#include "RootWindow.h"
#include "Store.h"
#include "ThemeNames.h"
#include "ViewTable.h"

using test::Remote;
using test::Tv;
namespace fs = std::filesystem;

namespace {

const fs::path kSource = SOURCE_DIRECTORY;
constexpr const char* kThemes[] = {"quirelle_dark.edj", "quirelle_hc.edj"};

std::string FileOf(const std::string& theme) { return std::string(BUILD_DIRECTORY) + "/" + theme; }

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// Everything that the first group of `pattern` finds in a text.
std::set<std::string> FindAll(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  std::set<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), regex), end; match != end; ++match) {
    found.insert((*match)[1]);
  }
  return found;
}

std::set<std::string> TakeStrings(Eina_List* list) {
  std::set<std::string> strings;
  const Eina_List* node = nullptr;
  const void* text = nullptr;
  EINA_LIST_FOREACH(list, node, text) strings.insert(static_cast<const char*>(text));
  edje_edit_string_list_free(list);
  return strings;
}

/// A group of a compiled theme, open for looking into it.
class Group {
 public:
  Group(const std::string& theme, const std::string& group)
      : m_object(edje_edit_object_add(evas_object_evas_get(CRootWindow::GetWindow()))) {
    m_found = edje_object_file_set(m_object, FileOf(theme).c_str(), group.c_str());
  }
  ~Group() { evas_object_del(m_object); }
  Group(const Group&) = delete;

  bool Found() const { return m_found; }
  Evas_Object* Object() const { return m_object; }
  bool HasPart(const std::string& part) const { return edje_object_part_exists(m_object, part.c_str()); }
  bool Hears(const std::string& signal) const {
    for (const std::string& program : TakeStrings(edje_edit_programs_list_get(m_object))) {
      const char* heard = edje_edit_program_signal_get(m_object, program.c_str());
      const bool same = heard && signal == heard;
      edje_edit_string_free(heard);
      if (same) return true;
    }
    return false;
  }

 private:
  Evas_Object* m_object;
  bool m_found = false;
};

/// Runs `body` for each theme, with a window to put its groups on.
void ForEachTheme(const std::function<void(const std::string& theme)>& body) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote&) {
    for (const char* theme : kThemes) body(theme);
  });
}

// --- names ---------------------------------------------------------------------------------------

struct Needed {
  std::string group;
  std::vector<std::string> parts, signals;
};

std::vector<std::string> NumberedParts(const char* part, int first, int last) {
  std::vector<std::string> parts;
  for (int number = first; number <= last; ++number) parts.push_back(theme::Numbered(part, number));
  return parts;
}

void AddLists(std::vector<Needed>& needed) {
  needed.push_back(
      {"elm/genlist/base/" + std::string(theme::kListDefault),
       {},
       {theme::kShowTopShadow, theme::kHideTopShadow, theme::kShowBottomShadow, theme::kHideBottomShadow}});
  needed.push_back({theme::kListGround, {}, {}});
  for (const char* kind : {"item", "item_compress"}) {
    const auto row = [kind](const char* style) {
      return std::string("elm/genlist/") + kind + "/" + style + "/default";
    };
    for (const char* style : {theme::kRow, theme::kRowLite, theme::kRowGrey}) {
      needed.push_back(
          {row(style),
           {theme::kRowText},
           {theme::kItemFocus, theme::kItemUnfocus, theme::kItemDimmed, theme::kItemUndimmed, theme::kItemIconText}});
    }
    for (const char* style : {theme::kRowValue, theme::kRowValueLite, theme::kRowValueGrey}) {
      needed.push_back({row(style),
                        {theme::kRowText, theme::kRowValueText},
                        {theme::kItemFocus, theme::kItemUnfocus, theme::kItemDimmed, theme::kItemUndimmed,
                         theme::kItemIconTwoTexts}});
    }
    for (const char* style : {theme::kFact, theme::kFactAbbreviated, theme::kMeasure, theme::kMeasureAbbreviated}) {
      needed.push_back({row(style), {theme::kRowText, theme::kRowValueText, theme::kRowValueTextReversed}, {}});
    }
    for (const char* style : {theme::kMeasure, theme::kMeasureAbbreviated}) {
      needed.push_back({row(style), {theme::kMeasureBar}, {}});
    }
  }
}

void AddControls(std::vector<Needed>& needed) {
  for (const std::string style : {theme::kSpinner, theme::kSpinnerTouch}) {
    needed.push_back({"elm/spinner/base/" + style,
                      {theme::kIncreasePart, theme::kDecreasePart, theme::kSpinnerFocusPart},
                      {theme::kActionFocus, theme::kActionUnfocus}});
  }
  for (const std::string style : {theme::kIncrease, theme::kIncreaseTouch, theme::kDecrease, theme::kDecreaseTouch}) {
    needed.push_back({"elm/button/base/" + style, {}, {theme::kActionFocus, theme::kPressed}});
  }
  for (const char* group : {theme::kBottomList, theme::kBottomListContrast}) {
    needed.push_back({group,
                      {theme::kBottomListTitle, theme::kBottomListSize, theme::kBottomListPart},
                      {theme::kRise, theme::kSink}});
  }
  needed.push_back({"elm/slider/horizontal/" + std::string(theme::kSlider), {"elm.dragable.slider"}, {}});
  needed.push_back({"elm/progressbar/horizontal/" + std::string(theme::kMeasureBarStyle), {}, {}});
}

void AddInformation(std::vector<Needed>& needed) {
  needed.push_back({theme::kInformation,
                    {theme::kInformationText, theme::kInformationItems, theme::kInformationAction,
                     theme::kInformationActionPad, theme::kInformationImage, theme::kInformationImagePad},
                    {theme::kInformationActionShown}});
  needed.push_back({theme::kSignalImage, {}, {theme::kSignalLevel}});
  needed.push_back({theme::kHistory, {theme::kInformationText, theme::kInformationItems}, {theme::kHistoryEmpty}});
  needed.push_back(
      {theme::kFineTune,
       {theme::kFineTuneSlider, theme::kFineTuneChannel, theme::kFineTuneStatus, theme::kFineTuneStatusReversed},
       {theme::kShowStatus, theme::kHideStatus}});
}

std::vector<Needed> EverythingNeeded() {
  std::vector<Needed> needed = {
      {"elm/button/base/" + std::string(theme::kButton), {"elm.text"}, {"elm,action,focus", "elm,action,unfocus"}},
      {"elm/check/base/" + std::string(theme::kRatingCheck), {}, {"elm,state,check,on", "elm,state,check,off"}},
      {"elm/progressbar/horizontal/" + std::string(theme::kProgress), {"elm.cur.progressbar"}, {}},
      {"elm/label/base/" + std::string(theme::kNoticeLabel), {theme::kLabelText}, {}},
      {"elm/focus_highlight/top/" + std::string(theme::kFocusHighlight), {}, {"elm,action,focus,show"}},
      {theme::kDim, {}, {}},
      {theme::kRatingGrid, NumberedParts(theme::kRatingText, 1, 12), {}},
      {theme::kRatingGrid, NumberedParts(theme::kRatingBox, 0, 17), {}},
  };
  for (const std::string style :
       {theme::kBottomLarge, theme::kSmallBottom, theme::kBottom, theme::kRight, theme::kRightLarge}) {
    needed.push_back({"elm/popup/base/" + style,
                      {theme::kContent, "elm.text.title", "elm.swallow.action_area"},
                      {theme::kHideBackground, "elm,state,title,text,visible", "elm,state,action_area,visible"}});
    needed.push_back({"elm/popup/content/popup/" + style, {theme::kContent}, {}});
    for (int count = 1; count <= 3; ++count) {
      needed.push_back({"elm/popup/buttons" + std::to_string(count) + "/popup/" + style,
                        NumberedParts("elm.swallow.content.button", 1, count),
                        {}});
    }
  }
  for (const std::string style : {theme::kDropDown, theme::kSpinnerPopup}) {
    needed.push_back({"elm/popup/base/" + style, {theme::kContent}, {}});
    needed.push_back({"elm/popup/content/popup/" + style, {theme::kContent}, {}});
  }
  needed.push_back({"elm/popup/base/" + std::string(theme::kRightLarge), {}, {theme::kDim50, theme::kUndim}});
  AddLists(needed);
  AddControls(needed);
  AddInformation(needed);
  return needed;
}

TEST(ThemeNames, EachIsInBothThemes) {
  ForEachTheme([](const std::string& theme) {
    for (const Needed& needed : EverythingNeeded()) {
      SCOPED_TRACE(theme + " " + needed.group);
      const Group group(theme, needed.group);
      ASSERT_TRUE(group.Found());
      for (const std::string& part : needed.parts) EXPECT_TRUE(group.HasPart(part)) << part;
      for (const std::string& signal : needed.signals) EXPECT_TRUE(group.Hears(signal)) << signal;
    }
  });
}

TEST(ThemeNames, NoneIsForgottenByTheTestAbove) {
  std::string known = "elm title,text button1 button2 button3 elm.text.title";  // the toolkit's, or a window's
  known += " elm.swallow.content.1 theme,state,dimmed theme,state,undimmed";  // of rows with a content: there are none
  known += " startanimfinish endanimfinish clicked_outside";                  // said by the theme
  for (const Needed& needed : EverythingNeeded()) {
    known += " " + needed.group;
    for (const auto& names : {needed.parts, needed.signals}) {
      for (const std::string& name : names) known += " " + name;
    }
  }
  const std::string header = ReadFile(kSource / "source/view/base/ThemeNames.h");
  for (const std::string& name : FindAll(header, "\"([^\"]+)\"(?!\\n#)")) {
    EXPECT_TRUE(name == "string" || known.find(name) != std::string::npos) << name;
  }
}

TEST(ThemeNames, AreWrittenDownInOnePlace) {
  const auto names = FindAll(ReadFile(kSource / "source/view/base/ThemeNames.h"), "= \"([^\"]+)\";");
  for (const auto& entry : fs::recursive_directory_iterator(kSource / "source")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string code = ReadFile(entry.path());
    for (const std::string& name : names) {
      if (name == "elm" || name == "text" || name == "check") continue;
      EXPECT_EQ(code.find("\"" + name + "\""), std::string::npos) << entry.path() << " spells out " << name;
    }
  }
}

// --- colours -------------------------------------------------------------------------------------

struct Colour {
  int r, g, b, a;
};

using Palette = std::map<std::string, Colour>;

Palette ReadPalette(const std::string& theme) {
  Palette palette;
  Evas_Object* object = edje_edit_object_add(evas_object_evas_get(CRootWindow::GetWindow()));
  edje_object_file_set(object, FileOf(theme).c_str(), theme::kDim);
  for (const std::string& name : TakeStrings(edje_edit_color_classes_list_get(object))) {
    Colour c{};
    int unused = 0;
    edje_edit_color_class_colors_get(object, name.c_str(), &c.r, &c.g, &c.b, &c.a, &unused, &unused, &unused, &unused,
                                     &unused, &unused, &unused, &unused);
    palette[name] = c;
  }
  evas_object_del(object);
  return palette;
}

double Luminance(const Colour& colour) {
  const auto part = [](int value) {
    const double v = value / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.r) + 0.7152 * part(colour.g) + 0.0722 * part(colour.b);
}

double Contrast(const Colour& one, const Colour& other) {
  const double a = Luminance(one), b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

struct OnGround {
  const char* text;
  std::vector<const char*> grounds;
};

const OnGround kTexts[] = {
    {"text", {"panel", "ground", "button_ground"}},
    {"text_second", {"panel", "ground", "RATING_BG_NORMAL_COLOR"}},
    {"focus_text", {"focus_ground", "press_ground"}},
    {"2018_TEXT_COLOR_NORMAL", {"RATING_BG_NORMAL_COLOR", "2018_LIST_BG_COLOR", "panel"}},
    {"MAINMENU_GENLIST_TEXT_COLOR_NORMAL", {"MENU_2017_LIST_BG_COLOR", "2018_LIST_BG_COLOR"}},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_N", {"focus_ground"}},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_F", {"focus_ground"}},
    // Marks, which are read like letters.
    {"set_mark", {"set"}},
    {"contrast_line", {"contrast_ground"}},
};

TEST(Contrast, OfEveryTextOnItsGroundIsEnough) {
  ForEachTheme([](const std::string& theme) {
    const Palette palette = ReadPalette(theme);
    const double least = theme == kThemes[0] ? 4.5 : 7.0;
    for (const OnGround& text : kTexts) {
      for (const char* ground : text.grounds) {
        ASSERT_TRUE(palette.contains(text.text) && palette.contains(ground)) << text.text << " " << ground;
        EXPECT_GE(Contrast(palette.at(text.text), palette.at(ground)), least)
            << theme << " " << text.text << " on " << ground;
        EXPECT_EQ(palette.at(text.text).a & palette.at(ground).a, 255) << "a contrast of what is seen through";
      }
    }
  });
}

/// Colour classes of the parts of a kind, in every state that is seen.
std::set<std::string> ClassesOf(const Group& group, const std::set<Edje_Part_Type>& kinds) {
  std::set<std::string> classes;
  for (const std::string& part : TakeStrings(edje_edit_parts_list_get(group.Object()))) {
    if (!kinds.contains(edje_edit_part_type_get(group.Object(), part.c_str()))) continue;
    for (const std::string& state : TakeStrings(edje_edit_part_states_list_get(group.Object(), part.c_str()))) {
      const std::string name = state.substr(0, state.find(' '));
      if (!edje_edit_state_visible_get(group.Object(), part.c_str(), name.c_str(), 0.0)) continue;
      const char* colour = edje_edit_state_color_class_get(group.Object(), part.c_str(), name.c_str(), 0.0);
      classes.insert(colour ? colour : "");
      edje_edit_string_free(colour);
    }
  }
  return classes;
}

TEST(Contrast, CoversEveryTextAndNothingHasAColourOfItsOwn) {
  ForEachTheme([](const std::string& theme) {
    const Palette palette = ReadPalette(theme);
    Eina_List* groups = edje_file_collection_list(FileOf(theme).c_str());
    const Eina_List* node = nullptr;
    const void* name = nullptr;
    EINA_LIST_FOREACH(groups, node, name) {
      const Group group(theme, static_cast<const char*>(name));
      for (const std::string& text : ClassesOf(group, {EDJE_PART_TYPE_TEXT})) {
        EXPECT_TRUE(
            std::any_of(std::begin(kTexts), std::end(kTexts), [&](const OnGround& t) { return text == t.text; }))
            << theme << " " << static_cast<const char*>(name) << ": text of class '" << text << "'";
      }
      for (const std::string& drawn : ClassesOf(group, {EDJE_PART_TYPE_RECTANGLE, EDJE_PART_TYPE_IMAGE})) {
        EXPECT_TRUE(palette.contains(drawn)) << theme << " " << static_cast<const char*>(name) << ": '" << drawn << "'";
      }
    }
    edje_file_collection_list_free(groups);
  });
}

TEST(Palette, IsWhatTheTVsChipsMakeOfIt) {
  for (const std::string contrast : {"0", "1"}) {
    Tv tv;
    tv.Set("db/menu/system/accessibility/highcontrast", contrast);
    test::Run({"tv-rating"}, [&](Remote&) {
      Palette palette = ReadPalette(kThemes[contrast == "1"]);
      const std::regex bound("\\[Debug\\]color_class=(\\S+), colorChip=(\\S+) .*");
      int count = 0;
      for (const std::string& line : test::Log()) {
        std::smatch match;
        if (!std::regex_match(line, match, bound)) continue;
        ++count;
        ASSERT_TRUE(palette.contains(match[1])) << match[1];
        const Colour own = palette[match[1]];
        desktop::Query q("SELECT r, g, b, a FROM chip WHERE name = ? AND contrast = ?", match[2].str(), contrast);
        ASSERT_TRUE(q.Row());
        EXPECT_TRUE(q.Int(0) == own.r && q.Int(1) == own.g && q.Int(2) == own.b && q.Int(3) == own.a) << match[1];
      }
      EXPECT_EQ(count, 16);
    });
  }
}

// --- texts ---------------------------------------------------------------------------------------

/// Texts of a catalogue by their ID.
std::map<std::string, std::string> ReadCatalogue(const std::string& language) {
  const std::string text = ReadFile(kSource / "po" / (language + ".po"));
  const std::regex entry("msgid \"([^\"]+)\"\\s+msgstr \"((?:[^\"\\\\]|\\\\.)*)\"((?:\\s+\"(?:[^\"\\\\]|\\\\.)*\")*)");
  std::map<std::string, std::string> texts;
  for (std::sregex_iterator match(text.begin(), text.end(), entry), end; match != end; ++match) {
    EXPECT_FALSE(texts.contains((*match)[1])) << language << ": twice " << (*match)[1];
    texts[(*match)[1]] = (*match)[2].str() + (*match)[3].str();
  }
  return texts;
}

std::set<std::string> IdsInUse() {
  std::set<std::string> ids;
  const std::string id = "((?:[A-Z]+_)*SID_[A-Z0-9_]+)";
  for (const char* folder : {"source", "menuitem"}) {
    for (const auto& entry : fs::recursive_directory_iterator(kSource / folder)) {
      if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
        ids.merge(FindAll(ReadFile(entry.path()), "\"" + id + "\""));
      }
    }
  }
  ids.merge(FindAll(ReadFile(kSource / "tv/profiles/menu.inc"), "[ :]" + id));
  return ids;
}

TEST(Catalogues, HaveATextForEveryID) {
  const std::set<std::string> ids = IdsInUse();
  ASSERT_GT(ids.size(), 100U);
  const auto english = ReadCatalogue("en");
  for (const char* language : {"en", "de", "ar", "ko"}) {
    auto texts = ReadCatalogue(language);
    for (const std::string& id : ids) EXPECT_FALSE(texts[id].empty()) << language << ": " << id;
    for (const auto& [id, text] : english) {
      EXPECT_EQ(FindAll(texts[id], "(<<[A-D]>>)"), FindAll(text, "(<<[A-D]>>)")) << language << ": " << id;
    }
  }
}

// --- windows -------------------------------------------------------------------------------------

TEST(Windows, OfTheProgramAreThoseOfTheMenu) {
  std::set<std::string> items, windows;
  for (const desktop::ProfileSection& section : desktop::ReadProfile("america")) {
    if (section.name != "menu") continue;
    for (const desktop::ProfileLine& line : section.lines) {
      std::string rest = line.text;
      const std::string kind = desktop::TakeWord(rest), id = desktop::TakeWord(rest);
      items.insert(id);
      if (kind == "window") windows.insert(id);
    }
  }
  std::set<std::string> ids;
  std::set<long> numbers;
  for (const ViewEntry& entry : ViewTable()) {
    EXPECT_TRUE(ids.insert(entry.menuID).second) << entry.menuID;
    EXPECT_TRUE(entry.windowID == 0 || numbers.insert(entry.windowID).second) << entry.windowID;
    EXPECT_TRUE(items.contains(entry.menuID)) << entry.menuID << " is not in the menu";
    EXPECT_TRUE(!entry.make || windows.contains(entry.menuID)) << entry.menuID << " is no window of the menu";
  }
  EXPECT_EQ(ids.size(), 28U);
  EXPECT_EQ(*numbers.rbegin(), 25);
  ids.insert("information-window");
  for (const std::string& window : windows) EXPECT_TRUE(ids.contains(window)) << window << " is not in the program";
}

}  // namespace
