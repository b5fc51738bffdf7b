#include "ViewTvRatingWindow.h"

#include <string_view>
#include <vector>

#include "DataProvider.h"
#include "Log.h"
#include "RatingKeys.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "feedback.h"
#include "vconf.h"

namespace {

constexpr int kMinWidth = 1280;
constexpr int kMinHeight = 520;
constexpr int kFeedbackFocus = 65;
constexpr int kFeedbackReturn = 69;

enum Bit { ALL = 0x20, FV = 0x10, V = 0x08, S = 0x04, L = 0x02, D = 0x01 };
enum Row { Y, Y7, G, PG, R14, MA };

struct RatingRow {
  const char* key;
  /// What the row's All box sets or clears.
  int allMask;
  const char* label;
};

constexpr RatingRow kRows[] = {
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_y", ALL, "SID_TV_Y"},
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_y7", ALL | FV, "SID_TV_Y7"},
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_g", ALL, "SID_TV_G"},
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_pg", ALL | V | S | L | D, "SID_TV_PG"},
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_14", ALL | V | S | L | D, "SID_TV_14"},
    {"db/menu/broadcasting/program_rating_lock/tv_rating/tv_ma", ALL | V | S | L, "SID_TV_MA"},
};
constexpr int kRowCount = 6;

constexpr const char* kColumns[] = {"SID_ALL", "FV", "V", "S", "L", "D"};
/// What they stand for.
constexpr const char* kColumnNames[] = {"",
                                        "SID_RATING_FANTASY_VIOLENCE",
                                        "SID_RATING_VIOLENCE",
                                        "SID_RATING_SEXUAL_SITUATIONS",
                                        "SID_RATING_COARSE_LANGUAGE",
                                        "SID_RATING_SUGGESTIVE_DIALOGUE"};

struct RatingBox {
  Row row;
  Bit bit;
  const char* name;
};

constexpr RatingBox kBoxTable[CViewTvRatingWindow::kBoxes] = {
    {Y, ALL, "TV-Y_All"},    {Y7, ALL, "TV-Y7_All"}, {G, ALL, "TV-G_All"}, {PG, ALL, "TV-PG_All"},
    {R14, ALL, "TV-14_All"}, {MA, ALL, "TV_MA_All"}, {Y7, FV, "TV-Y7_FV"}, {PG, V, "TV-PG_V"},
    {R14, V, "TV-14_V"},     {MA, V, "TV-MA_V"},     {PG, S, "TV-PG_S"},   {R14, S, "TV-14_S"},
    {MA, S, "TV-MA_S"},      {PG, L, "TV-PG_L"},     {R14, L, "TV-14_L"},  {MA, L, "TV-MA_L"},
    {PG, D, "TV-PG_D"},      {R14, D, "TV-14_D"},
};

/// What follows when a box changes: other boxes, and rows whose masks are written behind them.
struct Cascade {
  std::vector<int> boxes;
  std::vector<int> rows;
};

/// Locking a rating locks every stricter one.
const Cascade kOn[CViewTvRatingWindow::kBoxes] = {
    {{1, 6}, {Y7}},
    {{6}, {}},
    {{3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17}, {PG, R14, MA}},
    {{4, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17}, {R14, MA}},
    {{5, 8, 11, 14, 17, 9, 12, 15}, {MA}},
    {{9, 12, 15}, {}},
    {{}, {}},
    {{8, 9}, {}},
    {{9}, {}},
    {{}, {}},
    {{11, 12}, {}},
    {{12}, {}},
    {{}, {}},
    {{14, 15}, {}},
    {{15}, {}},
    {{}, {}},
    {{17}, {}},
    {{}, {}},
};

/// Unlocking a rating unlocks every milder one.
const Cascade kOff[CViewTvRatingWindow::kBoxes] = {
    {{}, {}},
    {{6, 1, 0}, {Y}},
    {{}, {}},
    {{2, 7, 10, 13, 16}, {G}},
    {{2, 3, 7, 10, 13, 16, 8, 11, 14, 17}, {G, PG}},
    {{2, 3, 4, 7, 10, 13, 16, 8, 11, 14, 17, 5, 9, 12, 15}, {G, PG, R14}},
    {{1, 0}, {}},
    {{2, 3}, {}},
    {{2, 3, 4, 7}, {}},
    {{2, 3, 4, 5, 8, 7}, {}},
    {{3, 2}, {}},
    {{10, 2, 3, 4}, {}},
    {{11, 10, 2, 3, 4, 5}, {}},
    {{2, 3}, {}},
    {{13, 2, 3, 4}, {}},
    {{14, 13, 2, 3, 4, 5}, {}},
    {{2, 3}, {}},
    {{16, 2, 3, 4}, {}},
};

struct FocusPath {
  int from;
  Elm_Focus_Direction direction;
  int to;
};

/// Stands for the button among the boxes.
constexpr int kClose = -1;

constexpr FocusPath kFocusPaths[] = {
    {5, ELM_FOCUS_DOWN, kClose},  {6, ELM_FOCUS_DOWN, kClose},      {9, ELM_FOCUS_DOWN, kClose},
    {12, ELM_FOCUS_DOWN, kClose}, {15, ELM_FOCUS_DOWN, kClose},     {17, ELM_FOCUS_DOWN, kClose},
    {kClose, ELM_FOCUS_UP, 9},    {kClose, ELM_FOCUS_LEFT, kClose}, {kClose, ELM_FOCUS_RIGHT, kClose},
    {0, ELM_FOCUS_LEFT, 0},       {0, ELM_FOCUS_RIGHT, 0},          {2, ELM_FOCUS_LEFT, 2},
    {2, ELM_FOCUS_RIGHT, 2},      {6, ELM_FOCUS_RIGHT, 1},          {1, ELM_FOCUS_LEFT, 6},
    {16, ELM_FOCUS_RIGHT, 3},     {3, ELM_FOCUS_LEFT, 16},          {17, ELM_FOCUS_RIGHT, 4},
    {4, ELM_FOCUS_LEFT, 17},      {15, ELM_FOCUS_RIGHT, 5},         {5, ELM_FOCUS_LEFT, 15},
    {3, ELM_FOCUS_RIGHT, 7},      {4, ELM_FOCUS_RIGHT, 8},          {5, ELM_FOCUS_RIGHT, 9},
    {7, ELM_FOCUS_LEFT, 3},       {8, ELM_FOCUS_LEFT, 4},           {9, ELM_FOCUS_LEFT, 5},
};

/// The columns run the other way in a mirrored layout.
Elm_Focus_Direction OnScreen(Elm_Focus_Direction direction) {
  if (!elm_config_mirrored_get()) return direction;
  if (direction == ELM_FOCUS_LEFT) return ELM_FOCUS_RIGHT;
  if (direction == ELM_FOCUS_RIGHT) return ELM_FOCUS_LEFT;
  return direction;
}

int ColumnOf(Bit bit) {
  switch (bit) {
    case ALL:
      return 0;
    case FV:
      return 1;
    case V:
      return 2;
    case S:
      return 3;
    case L:
      return 4;
    case D:
      return 5;
  }
  return 0;
}

bool IsAllBox(int index) { return kBoxTable[index].bit == ALL; }

/// Of the box's column, in full; empty where the column says it itself.
std::string ColumnName(int index) {
  const std::string_view id = kColumnNames[ColumnOf(kBoxTable[index].bit)];
  return id.empty() ? "" : T(id.data());
}

/// "S, Sexual situations, TV-14", or "All, TV-14".
std::string BoxName(int index) {
  const RatingBox& box = kBoxTable[index];
  return spoken::Joined({T(kColumns[ColumnOf(box.bit)]), ColumnName(index), T(kRows[box.row].label)});
}

/// Sets or clears bits of a row's key; false when the key cannot be read or written.
bool UpdateKey(int row, int bits, bool set) {
  int value = 0;
  if (vconf_get_int(kRows[row].key, &value) != 0) return false;
  return vconf_set_int(kRows[row].key, set ? value | bits : value & ~bits) == 0;
}

}  // namespace

std::string CViewTvRatingWindow::t_GetBaseStyle() { return theme::kBottomLarge; }

std::string CViewTvRatingWindow::t_GetWindowTitleText() { return DisplayName(t_MenuID); }

void CViewTvRatingWindow::t_FocusFirst() {
  if (m_pCheck[0]) elm_object_focus_set(m_pCheck[0], EINA_TRUE);
}

void CViewTvRatingWindow::t_Create() {
  CViewWindowBase::t_Create();
  m_CreateContent();
  m_SetFocusDirections();
}

void CViewTvRatingWindow::m_CreateContent() {
  m_pLayout = t_AddContent(theme::kRatingGrid, kMinWidth, kMinHeight);
  if (!m_pLayout) {
    LOG_DEBUG("Failed to Create Layout");
    return;
  }
  m_SetLabels();
  if (!m_CreateRatingCheck()) LOG_DEBUG("Failed to Create Check");
}

void CViewTvRatingWindow::m_SetLabels() {
  int part = 0;
  const auto set = [&](const char* id) {
    elm_object_part_text_set(m_pLayout, theme::Numbered(theme::kRatingText, ++part).c_str(), T(id).c_str());
  };
  for (const char* column : kColumns) set(column);
  for (const RatingRow& row : kRows) set(row.label);
}

bool CViewTvRatingWindow::m_CreateRatingCheck() {
  for (int index = 0; index < kBoxes; ++index) {
    Evas_Object* check = elm_check_add(m_pLayout);
    if (!check) return false;
    m_pCheck[index] = check;
    m_SetInitialState(index);
    elm_object_style_set(check, theme::kRatingCheck);
    elm_object_part_content_set(m_pLayout, theme::Numbered(theme::kRatingBox, index).c_str(), check);
    t_Connections.Key(check, [](Evas_Object*, const Evas_Event_Key_Down& event) {
      if (std::string_view(event.keyname) == "Return") feedback_play(kFeedbackReturn);
    });
    t_Connections.Smart(check, "changed", [this, index](Evas_Object*, void*) { m_CheckboxStateChanged(index); });
    t_Connections.Smart(check, "focused", [this, index](Evas_Object*, void*) { m_ShowColumnName(index); });
    t_Connections.Smart(check, "unfocused", [this](Evas_Object*, void*) { m_ShowColumnName(0); });
    spoken::SetName(check, BoxName(index));
  }
  return true;
}

void CViewTvRatingWindow::m_ShowColumnName(int index) {
  elm_object_part_text_set(m_pLayout, theme::kRatingColumnName, ColumnName(index).c_str());
}

void CViewTvRatingWindow::m_SetInitialState(int index) {
  const RatingBox& box = kBoxTable[index];
  m_ShowState(index, (ReadRatingKey(kRows[box.row].key) & box.bit) != 0);
}

void CViewTvRatingWindow::m_SetFocusDirections() {
  const auto object = [this](int index) { return index == kClose ? t_pDefaultButtons[0] : m_pCheck[index]; };
  for (const FocusPath& path : kFocusPaths) {
    if (!object(path.from) || !object(path.to)) continue;
    elm_object_focus_next_object_set(object(path.from), object(path.to), OnScreen(path.direction));
  }
}

bool CViewTvRatingWindow::m_UpdateVconfKey(int index, unsigned char state) {
  if (index < 0 || index >= kBoxes) return false;
  return UpdateKey(kBoxTable[index].row, kBoxTable[index].bit, state != 0);
}

bool CViewTvRatingWindow::m_UpdateVconfKeyBitForAll(int row, unsigned char state) {
  if (row < 0 || row >= kRowCount) return false;
  LOG_DEBUG("SetingVconf[%d] [%d]", row, kRows[row].allMask);
  return UpdateKey(row, kRows[row].allMask, state != 0);
}

void CViewTvRatingWindow::m_SetCheckState(int index, unsigned char state) {
  if (m_pCheck[index]) m_ShowState(index, state != 0);
  if (m_FlagBlock) {
    LOG_DEBUG("BlockVconfSetting");
  } else {
    m_UpdateVconfKey(index, state);
  }
}

bool CViewTvRatingWindow::m_WriteFirst(int index, unsigned char state) {
  return IsAllBox(index) ? m_UpdateVconfKeyBitForAll(kBoxTable[index].row, state) : m_UpdateVconfKey(index, state);
}

void CViewTvRatingWindow::m_Cascade(int index, unsigned char state) {
  const Cascade& cascade = (state ? kOn : kOff)[index];
  m_FlagBlock = IsAllBox(index);
  m_followers = 0;
  for (const int box : cascade.boxes) {
    m_followers += elm_check_state_get(m_pCheck[box]) != state;
    m_SetCheckState(box, state);
  }
  m_FlagBlock = false;
  for (const int row : cascade.rows) m_UpdateVconfKeyBitForAll(row, state);
}

void CViewTvRatingWindow::m_CheckboxStateChanged(int index) {
  const unsigned char state = elm_check_state_get(m_pCheck[index]);
  LOG_INFO(" %s turned %d", kBoxTable[index].name, state);
  if (!m_WriteFirst(index, state)) {
    m_ShowState(index, !state);
    return;
  }
  m_ShowState(index, state != 0);
  m_Cascade(index, state);
  m_SpeakChange(index);
}

void CViewTvRatingWindow::m_ShowState(int index, bool locked) {
  elm_check_state_set(m_pCheck[index], locked);
  spoken::SetState(m_pCheck[index], T(locked ? "COM_SID_SECURITY_ON" : "COM_SID_SECURITY_OFF"));
}

/// The box that was pressed, and how many others went with it.
void CViewTvRatingWindow::m_SpeakChange(int index) {
  const size_t others = m_followers;
  Speak(spoken::Joined({BoxName(index), spoken::StateOf(m_pCheck[index]),
                        others > 0 ? Filled("COM_SID_MIX_A_MORE_CHANGED", std::to_string(others)) : ""}));
}

void CViewTvRatingWindow::t_ProcessDefaultButtonOneFocusCallBack() {
  LOG_INFO("t_ProcessDefaultButtonOneFocusCallBack called");
  feedback_play(kFeedbackFocus);
}

void CViewTvRatingWindow::t_FirstEnter(std::string& text) {
  CViewWindowBase::t_FirstEnter(text);
  text += " " + t_WindowTitle + ", " + spoken::Items(kBoxes) + ", " + BoxName(0) + ", " + T("COM_TV_SID_CHECKBOX") +
          " " + spoken::StateOf(m_pCheck[0]);
}

/// The boxes and the layout go with the window.
void CViewTvRatingWindow::t_Destroy() {
  CViewWindowBase::t_Destroy();
  m_pCheck.fill(nullptr);
  m_pLayout = nullptr;
}
