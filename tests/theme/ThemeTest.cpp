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
#include "ThemeNames.h"
#include "ViewTable.h"

using test::Remote;
using test::Tv;
using Names = std::set<std::string>;
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

/// Everything that `pattern` finds in a text, with its groups.
std::vector<std::smatch> Matches(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern);
  return {std::sregex_iterator(text.begin(), text.end(), regex), std::sregex_iterator()};
}

Names FindAll(const std::string& text, const std::string& pattern) {
  Names found;
  for (const std::smatch& match : Matches(text, pattern)) found.insert(match[1]);
  return found;
}

/// The program's own files of these kinds below a folder.
std::vector<fs::path> Files(const char* folder, const std::set<fs::path>& kinds) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(kSource / folder)) {
    if (kinds.contains(entry.path().extension())) files.push_back(entry.path());
  }
  return files;
}

Names TakeStrings(Eina_List* list) {
  Names strings;
  const Eina_List* node = nullptr;
  const void* text = nullptr;
  EINA_LIST_FOREACH(list, node, text) strings.insert(static_cast<const char*>(text));
  edje_edit_string_list_free(list);
  return strings;
}

std::string TakeString(const char* text) {
  std::string taken = text ? text : "";
  edje_edit_string_free(text);
  return taken;
}

/// A group of a compiled theme, open for looking into it.
class Group {
 public:
  Group(const std::string& theme, const std::string& group)
      : m_object(edje_edit_object_add(evas_object_evas_get(CRootWindow::GetWindow()))),
        m_found(edje_object_file_set(m_object, FileOf(theme).c_str(), group.c_str())) {}
  ~Group() { evas_object_del(m_object); }
  Group(const Group&) = delete;

  bool Found() const { return m_found; }
  Evas_Object* Object() const { return m_object; }
  Names Parts() const { return TakeStrings(edje_edit_parts_list_get(m_object)); }
  /// What its programs hear.
  Names Signals() const {
    Names signals;
    for (const std::string& program : TakeStrings(edje_edit_programs_list_get(m_object))) {
      signals.insert(TakeString(edje_edit_program_signal_get(m_object, program.c_str())));
    }
    return signals;
  }

 private:
  Evas_Object* m_object;
  bool m_found;
};

/// Runs `body` for each theme, with a window to put its groups on.
void ForEachTheme(const std::function<void(const std::string& theme)>& body) {
  Tv tv;
  test::Run({"tv-rating"}, [&](Remote&) {
    for (const char* theme : kThemes) {
      SCOPED_TRACE(theme);
      body(theme);
    }
  });
}

// --- names ---------------------------------------------------------------------------------------

/// Parts that each of some groups has, and signals that it hears; '*' in their names stands for each style.
struct Needed {
  Names groups, styles, names;
};

Names Numbered(const char* part, int first, int last) {
  Names parts;
  for (int number = first; number <= last; ++number) parts.insert(theme::Numbered(part, number));
  return parts;
}

std::vector<Needed> EverythingNeeded() {
  using namespace theme;
  const Names row = {"elm/genlist/item/*/default", "elm/genlist/item_compress/*/default"};
  const Names plain = {kRow, kRowLite, kRowGrey}, values = {kRowValue, kRowValueLite, kRowValueGrey};
  const Names states = {kItemFocus, kItemUnfocus, kItemDimmed, kItemUndimmed};
  const Names facts = {kFact, kFactAbbreviated, kMeasure, kMeasureAbbreviated};
  const Names panels = {kBottomLarge, kSmallBottom, kBottom, kRight, kRightLarge};
  const Names steppers = {kIncrease, kIncreaseTouch, kDecrease, kDecreaseTouch};
  return {
      {{"elm/button/base/*"}, {kButton}, {"elm.text", kActionFocus, kActionUnfocus}},
      {{"elm/check/base/*"}, {kRatingListCheck}, {kActionFocus, kActionUnfocus}},
      {{"elm/check/base/*"},
       {kRatingCheck, kRatingListCheck, kCheckBox},
       {"elm,state,check,on", "elm,state,check,off"}},
      {{"elm/progressbar/horizontal/*"}, {kProgress}, {"elm.cur.progressbar"}},
      {{"elm/progressbar/horizontal/*"}, {kMeasureBarStyle}, {kMeasureBarEmpty, kMeasureBarPlain}},
      {{"elm/progressbar/horizontal/*"},
       {kMeasureBarStyle},
       {kMeasureBarWord, kMeasureBarWorded, kMeasureBarWordedReversed}},
      {{"elm/label/base/*"}, {kNoticeLabel}, {kLabelText, kLines, kLineWidth}},
      {{"elm/focus_highlight/top/*"}, {kFocusHighlight}, {"elm,action,focus,show"}},
      {{"elm/slider/horizontal/*"}, {kSlider}, {"elm.dragable.slider"}},
      {{"elm/spinner/base/*"}, {kSpinner, kSpinnerTouch}, {kIncreasePart, kDecreasePart, kSpinnerFocusPart}},
      {{"elm/spinner/base/*"}, {kSpinner, kSpinnerTouch}, {kActionFocus, kActionUnfocus, kStepping, kResting}},
      {{"elm/spinner/base/*"}, {kSpinner, kSpinnerTouch}, {kLongValue, kShortValue}},
      {{"elm/button/base/*"}, steppers, {kActionFocus, kPressed}},
      {{"*"}, {kDim, kListGround}, {}},
      {{"*"}, {kRatingGrid}, Numbered(kRatingText, 1, 12)},
      {{"*"}, {kRatingGrid}, Numbered(kRatingBox, 0, 17)},
      {{"*"}, {kRatingGrid}, {kRatingColumnName}},
      {{"*"}, {kDynamicRating}, {kPopupTitle, kDimension, kDimensionList}},

      {{"elm/popup/base/*"}, panels, {kContent, kPopupTitle, "elm,state,title,text,visible", kHideBackground}},
      {{"elm/popup/base/*"}, panels, {"elm.swallow.action_area", "elm,state,action_area,visible"}},
      {{"elm/popup/base/*"}, {kSmallBottom}, {kAbove}},
      {{"elm/popup/base/*"}, {kRight}, {kContentRows}},
      {{"elm/popup/base/*"}, {kRightLarge}, {kDim50, kUndim, kFramedContent, kHeadedContent}},
      {{"elm/popup/content/popup/*"}, panels, {kContent}},
      {{"elm/popup/base/*", "elm/popup/content/popup/*"}, {kDropDown, kSpinnerPopup}, {kContent}},
      {{"elm/popup/base/*", "elm/popup/content/popup/*"}, {kSpinnersPopup, kSpinnersPopupContrast}, {kContent}},
      {{"*"}, {kSlash, kSlashContrast}, {}},
      {{"elm/popup/buttons1/popup/*"}, panels, Numbered("elm.swallow.content.button", 1, 1)},
      {{"elm/popup/buttons2/popup/*"}, panels, Numbered("elm.swallow.content.button", 1, 2)},
      {{"elm/popup/buttons3/popup/*"}, panels, Numbered("elm.swallow.content.button", 1, 3)},

      {{"elm/genlist/base/*"}, {kListDefault}, {kShowTopShadow, kHideTopShadow, kShowBottomShadow, kHideBottomShadow}},
      {row, plain, {kRowText, kRowBox, kItemIconText, kRowChosen, kRowNotChosen}},
      {row, plain, states},
      {row, values, {kRowText, kRowValueText, kRowBox, kItemIconTwoTexts}},
      {row, values, {kRowEditable, kRowEditableReversed, kShowLine, kHideLine}},
      {row, values, states},
      {row, facts, {kRowText, kRowValueText, kRowValueTextReversed}},
      {row, {kMeasure, kMeasureAbbreviated}, {kMeasureBar}},

      {{"*"}, {kBottomList, kBottomListContrast}, {kBottomListTitle, kBottomListSize, kBottomListPart, kRise, kSink}},
      {{"*"}, {kInformation, kHistory}, {kInformationText, kInformationItems}},
      {{"*"}, {kInformation}, {kInformationAction, kInformationActionPad, kInformationActionShown}},
      {{"*"}, {kInformation}, {kInformationImage, kInformationImagePad}},
      {{"*"}, {kSignalImage}, {kSignalLevel}},
      {{"*"}, {kHistory}, {kHistoryEmpty}},
      {{"*"}, {kFineTune}, {kFineTuneSlider, kFineTuneChannel, kFineTuneStatus, kFineTuneStatusReversed}},
      {{"*"}, {kFineTune}, {kShowStatus, kHideStatus}},
      {{"*"}, {kSatellites}, {kSatellitesHint, kSatellitesList}},
      {{"*"}, {kRun}, {kProgressPart, kRunText, kRunPercent}},
      {{"*"}, {kTransferList}, {kInformationText, kInformationItems}},
      {{"*"}, {kCopyLayout}, {kCopyBar, kCopyPercent, kCopyText}},
      {{"*"}, {kTransferEnd}, Numbered(kTransferEndText, 1, 4)},
      {{"*"}, {kTransferEnd}, {kTransferContrast, kTransferImported, kTransferError}},
  };
}

TEST(ThemeNames, EachIsInBothThemes) {
  ForEachTheme([](const std::string& theme) {
    for (const Needed& needed : EverythingNeeded()) {
      for (const std::string& pattern : needed.groups) {
        for (const std::string& style : needed.styles) {
          const std::string name = std::string(pattern).replace(pattern.find('*'), 1, style);
          const Group group(theme, name);
          ASSERT_TRUE(group.Found()) << name;
          const Names parts = group.Parts(), signals = group.Signals();
          for (const std::string& each : needed.names) {
            EXPECT_TRUE(parts.contains(each) || signals.contains(each)) << name << " without " << each;
          }
        }
      }
    }
  });
}

TEST(ThemeNames, NoneIsForgottenByTheTestAbove) {
  std::string known = "elm title,text button1 button2 button3 string";        // the toolkit's, or a window's
  known += " elm.swallow.content.1 theme,state,dimmed theme,state,undimmed";  // of rows with a content: there are none
  known += " rating events mouse,down,1";                                     // sources, and a press
  known += " words hint strong face.text face.strong";                        // of letters that are never small
  known += " showarrow";                                                      // said to a theme that wants to know
  known += " startanimfinish endanimfinish clicked_outside";                  // said by the theme
  for (const Needed& needed : EverythingNeeded()) {
    for (const Names& names : {needed.styles, needed.names}) {
      for (const std::string& name : names) known += " " + name;
    }
  }
  const std::string header = ReadFile(kSource / "inc/ThemeNames.h");
  for (const std::string& name : FindAll(header, "\"([^\"]+)\"(?!\\n#)")) {
    EXPECT_NE(known.find(name), std::string::npos) << name;
  }
}

TEST(ThemeNames, AreWrittenDownInOnePlace) {
  const Names names = FindAll(ReadFile(kSource / "inc/ThemeNames.h"), "= \"([^\"]+)\";");
  for (const fs::path& path : Files("source", {".cpp"})) {
    const std::string code = ReadFile(path);
    for (const std::string& name : names) {
      // Words for other things as well: the last one for rows of a kind.
      if (name == "elm" || name == "text" || name == "check" || name == "controlpopup") continue;
      EXPECT_EQ(code.find("\"" + name + "\""), std::string::npos) << path << " spells out " << name;
    }
  }
}

// --- colours -------------------------------------------------------------------------------------

/// Red, green, blue, opacity.
using Colour = std::array<int, 4>;
using Palette = std::map<std::string, Colour>;

Palette ReadPalette(const std::string& theme) {
  Palette palette;
  const Group group(theme, theme::kDim);
  for (const std::string& name : TakeStrings(edje_edit_color_classes_list_get(group.Object()))) {
    auto& [r, g, b, a] = palette[name];
    int unused = 0;
    edje_edit_color_class_colors_get(group.Object(), name.c_str(), &r, &g, &b, &a, &unused, &unused, &unused, &unused,
                                     &unused, &unused, &unused, &unused);
  }
  return palette;
}

double Luminance(const Colour& colour) {
  const auto part = [](int value) {
    const double v = value / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour[0]) + 0.7152 * part(colour[1]) + 0.0722 * part(colour[2]);
}

double Contrast(const Colour& one, const Colour& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

/// Classes of texts, and those of what they stand on.
const std::map<std::string, Names> kTexts = {
    {"text", {"panel", "ground", "button_ground"}},
    {"text_second", {"panel", "ground", "RATING_BG_NORMAL_COLOR"}},
    {"focus_text", {"focus_ground", "press_ground"}},
    {"2018_TEXT_COLOR_NORMAL", {"RATING_BG_NORMAL_COLOR", "2018_LIST_BG_COLOR", "panel"}},
    {"MAINMENU_GENLIST_TEXT_COLOR_NORMAL", {"MENU_2017_LIST_BG_COLOR", "2018_LIST_BG_COLOR"}},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_N", {"focus_ground"}},
    {"MENU_BALCKTEXT_CALLOUT_1_COLOR_F", {"focus_ground"}},
    // Marks, which are read like letters.
    {"set_mark", {"box_set"}},
    {"contrast_line", {"contrast_ground"}},
};

/// Colour classes of the parts of a kind, in every state that is seen.
Names ClassesOf(const Group& group, const std::set<Edje_Part_Type>& kinds) {
  Names classes;
  for (const std::string& part : group.Parts()) {
    if (!kinds.contains(edje_edit_part_type_get(group.Object(), part.c_str()))) continue;
    for (const std::string& state : TakeStrings(edje_edit_part_states_list_get(group.Object(), part.c_str()))) {
      const std::string name = state.substr(0, state.find(' '));
      if (!edje_edit_state_visible_get(group.Object(), part.c_str(), name.c_str(), 0.0)) continue;
      classes.insert(TakeString(edje_edit_state_color_class_get(group.Object(), part.c_str(), name.c_str(), 0.0)));
    }
  }
  return classes;
}

TEST(Contrast, IsEnoughForEveryTextAndNothingHasAColourOfItsOwn) {
  ForEachTheme([](const std::string& theme) {
    Palette palette = ReadPalette(theme);
    const double least = theme == kThemes[0] ? 4.5 : 7.0;
    for (const auto& [text, grounds] : kTexts) {
      for (const std::string& ground : grounds) {
        SCOPED_TRACE(testing::Message() << text << " on " << ground);
        ASSERT_TRUE(palette.contains(text) && palette.contains(ground));
        // A box without a fill shows the panel.
        const auto& under = palette[ground][3] == 0 ? palette["panel"] : palette[ground];
        EXPECT_GE(Contrast(palette[text], under), least);
        EXPECT_EQ(palette[text][3] & under[3], 255) << "a contrast of what is seen through";
      }
    }
    Eina_List* groups = edje_file_collection_list(FileOf(theme).c_str());
    const Eina_List* node = nullptr;
    const void* name = nullptr;
    EINA_LIST_FOREACH(groups, node, name) {
      SCOPED_TRACE(static_cast<const char*>(name));
      const Group group(theme, static_cast<const char*>(name));
      for (const std::string& text : ClassesOf(group, {EDJE_PART_TYPE_TEXT})) {
        // Letters that are merely shown have the colour of what they are clipped to.
        EXPECT_TRUE(text == "shown" || kTexts.contains(text)) << "text of class '" << text << "'";
      }
      for (const std::string& drawn : ClassesOf(group, {EDJE_PART_TYPE_RECTANGLE, EDJE_PART_TYPE_IMAGE})) {
        EXPECT_TRUE(palette.contains(drawn)) << "'" << drawn << "'";
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
      int count = 0;
      for (const std::string& line : test::Log()) {
        for (const std::smatch& bound : Matches(line, "color_class=(\\S+), colorChip=(\\S+) ")) {
          ++count;
          const auto& [r, g, b, a] = palette[bound[1]];
          const std::string colour = test::Ask(
              "SELECT r || ' ' || g || ' ' || b || ' ' || a FROM chip "
              "WHERE name = ? AND contrast = ?",
              bound[2].str(), contrast);
          EXPECT_EQ(colour, (std::ostringstream() << r << " " << g << " " << b << " " << a).str()) << bound[1];
        }
      }
      EXPECT_EQ(count, 16);
    });
  }
}

// --- texts ---------------------------------------------------------------------------------------

/// Texts of a catalogue by their ID.
std::map<std::string, std::string> ReadCatalogue(const std::string& language) {
  const std::string text = ReadFile(kSource / "po" / (language + ".po"));
  std::map<std::string, std::string> texts;
  for (const std::smatch& entry : Matches(text, R"re(msgid "([^"]+)"\s+msgstr ((?:\s*"(?:[^"\\]|\\.)*")+))re")) {
    texts[entry[1]] = entry[2];
  }
  return texts;
}

TEST(Catalogues, HaveATextForEveryID) {
  const std::string id = "((?:[A-Z]+_)*SID_[A-Z0-9_]+)";
  Names ids = FindAll(ReadFile(kSource / "tv/profiles/menu.inc"), "[ :]" + id);
  for (const char* folder : {"source", "menuitem"}) {
    for (const fs::path& path : Files(folder, {".cpp", ".h"})) ids.merge(FindAll(ReadFile(path), "\"" + id + "\""));
  }
  ASSERT_GT(ids.size(), 100U);
  const auto english = ReadCatalogue("en");
  for (const char* language : {"en", "de", "ar", "ko"}) {
    SCOPED_TRACE(language);
    auto texts = ReadCatalogue(language);
    for (const std::string& each : ids) EXPECT_GT(texts[each].size(), 2U) << each;
    for (const auto& [each, text] : english) {
      EXPECT_EQ(FindAll(texts[each], "(<<[A-D]>>)"), FindAll(text, "(<<[A-D]>>)")) << each;
    }
  }
}

// --- windows -------------------------------------------------------------------------------------

TEST(Windows, OfTheProgramAreThoseOfTheMenu) {
  Names items, windows, ids;
  for (const desktop::ProfileSection& section : desktop::ReadProfile("america")) {
    if (section.name != "menu") continue;
    for (const desktop::ProfileLine& line : section.lines) {
      std::string rest = line.text;
      const std::string kind = desktop::TakeWord(rest), id = desktop::TakeWord(rest);
      items.insert(id);
      if (kind == "window") windows.insert(id);
    }
  }
  std::set<long> numbers;
  for (const ViewEntry& entry : ViewTable()) {
    EXPECT_TRUE(ids.insert(entry.menuID).second) << entry.menuID;
    const auto number = static_cast<long>(entry.window);
    EXPECT_TRUE(number == 0 || numbers.insert(number).second) << number;
    EXPECT_TRUE(items.contains(entry.menuID)) << entry.menuID << " is not in the menu";
    EXPECT_TRUE(!entry.make || windows.contains(entry.menuID)) << entry.menuID << " is no window of the menu";
  }
  EXPECT_EQ(ids.size(), 28U);
  EXPECT_EQ(*numbers.rbegin(), 25);
  ids.insert("information-window");
  for (const std::string& window : windows) EXPECT_TRUE(ids.contains(window)) << window << " is not in the program";
}

}  // namespace
