#include "ViewPositioner.h"

#include <Ecore_Input.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "Content.h"
#include "DataProvider.h"
#include "KeyManager.h"
#include "Log.h"
#include "RootWindow.h"
#include "Spoken.h"
#include "ThemeNames.h"
#include "Translation.h"
#include "Utils.h"
#include "VoiceGuide.h"
#include "settings_api.h"

namespace {

constexpr int kWidth = 620, kHeight = 124;
constexpr int kAbove = 24;
constexpr int kBoxWidth = 580, kBoxHeight = 64;
constexpr int kSpinnerWidth = 160;
constexpr int kSlashWidth = 50, kSlashHeight = 64;
constexpr const char* kMoreKey = "XF86More";

/// The greatest value of each spinner.
constexpr int kLast[] = {180, 9, 1};
constexpr int kMostDigits = 3;
constexpr const char* kLetters[] = {"E", "W"};
constexpr const char* kDirections[] = {"SID_EAST", "SID_WEST"};

std::string Span() { return Filled("TV_SID_MIX_A_TO_B", "0", std::to_string(kLast[0])); }

/// Reads a number and goes on behind it; what is too large is the largest.
bool TakeNumber(const char*& at, int& number) {
  char* end = nullptr;
  number = static_cast<int>(std::clamp(std::strtol(at, &end, 10), -1L, 1000L));
  const bool found = end != at;
  at = end;
  return found;
}

/// The letters behind a number, at most three; empty without any.
std::string Letters(const char* at) {
  while (std::isspace(static_cast<unsigned char>(*at))) ++at;
  std::string letters;
  while (letters.size() < 3 && *at && !std::isspace(static_cast<unsigned char>(*at))) letters += *at++;
  return letters;
}

/// Degrees, tenths and direction of a text like "19.2 E".
std::optional<std::array<int, 3>> Longitude(const char* text) {
  int degrees = 0, tenths = 0;
  if (!TakeNumber(text, degrees) || *text != '.' || !TakeNumber(++text, tenths)) return {};
  const std::string letters = Letters(text);
  if (letters.empty()) return {};
  return {{degrees, tenths, letters == "E" || letters == "N" ? 0 : 1}};
}

/// Below the first comes the last, behind the last the first.
int Wrapped(int value, int last) { return value < 0 ? last : value > last ? 0 : value; }

}  // namespace

int CViewPositioner::t_GetViewWidth() { return kWidth; }

int CViewPositioner::t_GetViewHeight() { return kHeight; }

// --- making --------------------------------------------------------------------------------------

void CViewPositioner::t_Create() {
  CView::t_Create();
  const char* style = Utils::IsHighContrastOn() ? theme::kSpinnersPopupContrast : theme::kSpinnersPopup;
  t_SetMainBase(CRootWindow::CreateBase(BASE_TYPE_POPUP, style, Utils::GetEDJFile().c_str()));
  if (!t_pMainBase) return;
  m_connections.Smart(t_pMainBase, "block,clicked", [this](Evas_Object*, void*) { t_PopupClickedCB(); });
  m_RegisterKeys(true);
  if (!m_DrawItems()) return;
  t_GetValue();
  t_UpdateDisplayVaule();
}

void CViewPositioner::m_RegisterKeys(bool take) {
  if (take) {
    CKeyManager::RegisterNumberKey();
    CKeyManager::RegisterKey(kMoreKey);
  } else {
    CKeyManager::UnRegisterNumberKey();
    CKeyManager::UnRegisterKey(kMoreKey);
  }
}

bool CViewPositioner::m_DrawItems() {
  Evas_Object* box = elm_box_add(t_pMainBase);
  if (!box) return false;
  elm_box_horizontal_set(box, EINA_TRUE);
  // A number runs from left to right in every language.
  elm_object_mirrored_automatic_set(box, EINA_FALSE);
  elm_object_mirrored_set(box, EINA_FALSE);
  for (int index = 0; index < kSpinners; ++index) {
    if (index > 0) m_DrawSlash(box);
    if (!t_DrawSpinner(box, index)) return false;
  }
  Evas_Object* table = Utils::WidgetMinSet(box, t_pMainBase, kBoxWidth, kBoxHeight, 1);
  evas_object_show(box);
  evas_object_show(table);
  elm_object_part_content_set(t_pMainBase, theme::kContent, table);
  return true;
}

bool CViewPositioner::t_DrawSpinner(Evas_Object* box, int index) {
  Spinner& spinner = m_spinners[index];
  const auto pressed = [this](Evas_Object*, Evas_Event_Key_Down& event) { t_KeyPressCB(event); };
  const auto clicked = [this, index](bool up) { t_ArrowClickCB(index, up); };
  const auto focused = [this, index] { t_FocusInCB(index); };
  const auto left = [this, index] { m_spinners[index].LightArrows(false); };
  if (!spinner.Create(box, {pressed, clicked, focused, left})) return false;
  spinner.LightArrows(false);
  if (index != kDirection) spinner.SetName(Span());
  spinner.Show();
  Evas_Object* table = Utils::WidgetMinSet(spinner.GetObject(), box, kSpinnerWidth, kHeight, 1);
  elm_box_pack_end(box, table);
  evas_object_show(table);
  return true;
}

void CViewPositioner::m_DrawSlash(Evas_Object* box) {
  Evas_Object* slash = AddLayout(box, Utils::IsHighContrastOn() ? theme::kSlashContrast : theme::kSlash);
  if (!slash) return;
  Evas_Object* table = Utils::WidgetMinSet(slash, box, kSlashWidth, kSlashHeight, 1);
  elm_box_pack_end(box, table);
  evas_object_show(slash);
  evas_object_show(table);
}

void CViewPositioner::t_Show() {
  t_SetPosition();
  CView::t_Show();
  if (!t_pMainBase) return;
  t_ShowMainBase();
  m_MoveTo(kDegrees);
}

void CViewPositioner::t_SetPosition() { t_PlaceBesideRow(t_pMainBase, t_GetViewWidth(), t_GetViewHeight(), kAbove); }

void CViewPositioner::t_Destroy() {
  m_connections.Clear();
  if (t_pMainBase) {
    m_RegisterKeys(false);
    Utils::CloseNumberPad();
  }
  // The spinners go with the popup: none of their parts may go that is to have the focus.
  CView::t_Destroy();
}

// --- the value -----------------------------------------------------------------------------------

void CViewPositioner::t_GetValue() {
  std::string name, value;
  SettingsAPI::Get()->GetItemValue(t_MenuID, name, value);
  m_values = Longitude(value.c_str()).value_or(std::array<int, 3>{});
}

void CViewPositioner::t_SetValue() {
  const std::string buf = std::to_string(m_values[kDegrees]) + "." + std::to_string(m_values[kTenths]) + " " +
                          kLetters[m_values[kDirection]];
  LOG_INFO(" buf=%s ", buf.c_str());
  if (SettingsAPI::Get()->SetItemValue(t_MenuID, buf, false) != 1) LOG_ERROR("SetItemValue fails");
}

void CViewPositioner::t_UpdateDisplayVaule() {
  for (int index = 0; index < kSpinners; ++index) m_values[index] = Wrapped(m_values[index], kLast[index]);
  if (m_values[kDegrees] == kLast[kDegrees]) m_values[kTenths] = 0;
  for (int index = 0; index < kSpinners; ++index) m_spinners[index].ShowText(m_TextOf(index));
}

std::string CViewPositioner::m_TextOf(int index) const {
  return index == kDirection ? T(kLetters[m_values[kDirection]]) : std::to_string(m_values[index]);
}

void CViewPositioner::m_SaveAndClose() {
  if (m_bClosing) return;
  m_bClosing = true;
  t_SetValue();
  CloseView();
}

// --- keys ----------------------------------------------------------------------------------------

struct CViewPositioner::KeyAction {
  std::string_view key;
  void (CViewPositioner::*act)();
};

const CViewPositioner::KeyAction CViewPositioner::kKeyActions[] = {
    {kMoreKey, &CViewPositioner::m_LaunchNumberPad},
    {"Left", &CViewPositioner::m_Left},
    {"Right", &CViewPositioner::m_Right},
    {"Up", &CViewPositioner::m_Up},
    {"KP_Up", &CViewPositioner::m_Up},
    {"Down", &CViewPositioner::m_Down},
    {"KP_Down", &CViewPositioner::m_Down},
    {"Return", &CViewPositioner::m_Enter},
    {"KP_Enter", &CViewPositioner::m_Enter},
    {"XF86Back", &CViewPositioner::m_SaveAndClose},
    {"BackSpace", &CViewPositioner::m_SaveAndClose},
};

void CViewPositioner::t_KeyPressCB(Evas_Event_Key_Down& event) {
  // Arrows change the value: they must not carry the focus to what lies below.
  HoldKey(event);
  if (!m_bClosing) m_HandleKey(event.keyname);
}

void CViewPositioner::m_HandleKey(const std::string& key) {
  const int digit = Utils::GetNumberFromKey(key.c_str());
  if (digit >= 0) return m_TypeDigit(digit);
  for (const KeyAction& action : kKeyActions) {
    if (action.key == key) return (this->*action.act)();
  }
}

/// The key comes here before it comes to the spinner, and even when none has the focus.
bool CViewPositioner::t_HandleMenuSpecialKeyCB(void*, int, void* event) {
  const auto* key = static_cast<Ecore_Event_Key*>(event);
  if (!key || !CKeyManager::IsBack(key->keyname)) return false;
  m_SaveAndClose();
  return true;
}

void CViewPositioner::m_LaunchNumberPad() {
  if (m_nSubFocus != kDirection) Utils::LaunchNumberPad("type", "NUM_SPIN");
}

void CViewPositioner::m_Left() {
  if (m_nSubFocus == kDegrees) return;
  m_MoveTo(m_nSubFocus - 1);
  m_PlayTTS(kMove);
}

void CViewPositioner::m_Right() {
  if (m_nSubFocus == kDirection) return;
  m_MoveTo(m_nSubFocus + 1);
  m_PlayTTS(kMove);
}

void CViewPositioner::m_Enter() {
  if (m_nSubFocus == kDirection) return m_SaveAndClose();
  m_Right();
}

void CViewPositioner::m_Step(bool up) {
  m_nDigits = 0;
  m_values[m_nSubFocus] += up ? 1 : -1;
  m_spinners[m_nSubFocus].PressArrow(up);
  t_UpdateDisplayVaule();
  m_PlayTTS(kValue);
}

void CViewPositioner::m_MoveTo(int index) {
  m_nDigits = 0;
  m_nSubFocus = index;
  m_spinners[index].Focus();
}

// --- typing --------------------------------------------------------------------------------------

void CViewPositioner::m_TypeDigit(int digit) {
  const int typed = m_nSubFocus;
  if (typed == kDirection) return;
  const int next = typed == kDegrees ? m_TypeDegrees(digit) : m_TypeTenths(digit);
  t_UpdateDisplayVaule();
  if (next == typed) return m_PlayTTS(kValue);
  m_MoveTo(next);
  elm_object_signal_emit(t_pMainBase, theme::Numbered(theme::kShowArrow, next + 1).c_str(), "");
  Speak(spoken::Joined({m_SpokenText(typed, kValue), m_SpokenText(next, kMove)}));
}

int CViewPositioner::m_TypeDegrees(int digit) {
  int& degrees = m_values[kDegrees];
  if (m_nDigits == 0) m_nDegreesBefore = degrees;
  degrees = m_nDigits == 0 ? digit : degrees * 10 + digit;
  if (++m_nDigits < kMostDigits) return kDegrees;
  m_nDigits = 0;
  if (degrees <= kLast[kDegrees]) return kTenths;
  degrees = m_nDegreesBefore;
  return kDegrees;
}

int CViewPositioner::m_TypeTenths(int digit) {
  m_values[kTenths] = digit;
  return kDirection;
}

// --- the pointer, and the focus ------------------------------------------------------------------

void CViewPositioner::t_ArrowClickCB(int index, bool up) {
  m_MoveTo(index);
  m_Step(up);
}

void CViewPositioner::t_FocusInCB(int index) {
  m_nSubFocus = index;
  m_spinners[index].LightArrows(true);
  if (index == kDirection) Utils::CloseNumberPad();
}

void CViewPositioner::t_PopupClickedCB() { m_SaveAndClose(); }

// --- for the ear ---------------------------------------------------------------------------------

void CViewPositioner::t_FirstEnter(std::string& text) {
  text += spoken::Joined({DisplayName(t_MenuID), spoken::Items(kSpinners), m_SpokenText(m_nSubFocus, kMove)});
}

std::string CViewPositioner::m_SpokenText(int index, Speech kind) const {
  if (index == kDirection) return T(kDirections[m_values[kDirection]]);
  const std::string value = std::to_string(m_values[index]);
  return kind == kMove ? Span() + ", " + value : value;
}

void CViewPositioner::m_PlayTTS(Speech kind) { Speak(m_SpokenText(m_nSubFocus, kind)); }
