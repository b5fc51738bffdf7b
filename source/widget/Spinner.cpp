// The toolkit counts the event of the focus among what may still change.
#define EFL_BETA_API_SUPPORT

#include "Spinner.h"

#include <Efl_Core.h>
#include <Efl_Ui.h>
#include <Elementary.h>

#include <utility>

#include "Content.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "Utils.h"

namespace {

/// Before the toolkit would move the focus.
constexpr Evas_Callback_Priority kKeyPriority = EVAS_CALLBACK_PRIORITY_BEFORE;

}  // namespace

bool Spinner::Create(Evas_Object* parent, Handlers handlers) {
  const bool touch = Utils::FlagTouchSupport();
  m_handlers = std::move(handlers);
  m_hadFocus = false;
  m_pSpinner = parent ? elm_spinner_add(parent) : nullptr;
  if (!m_pSpinner) return false;
  elm_object_style_set(m_pSpinner, touch ? theme::kSpinnerTouch : theme::kSpinner);
  elm_spinner_editable_set(m_pSpinner, EINA_FALSE);
  elm_spinner_min_max_set(m_pSpinner, 0, 0);
  m_pIncrease = m_CreateArrow(touch ? theme::kIncreaseTouch : theme::kIncrease, theme::kIncreasePart, true);
  m_pDecrease = m_CreateArrow(touch ? theme::kDecreaseTouch : theme::kDecrease, theme::kDecreasePart, false);
  m_CreateFocus();
  m_connections.Event(m_pSpinner, EVAS_CALLBACK_DEL,
                      [this](Evas_Object*, void*) { m_pSpinner = m_pFocus = m_pIncrease = m_pDecrease = nullptr; });
  return true;
}

Evas_Object* Spinner::m_CreateArrow(const char* style, const char* part, bool up) {
  Evas_Object* arrow = elm_button_add(m_pSpinner);
  elm_object_style_set(arrow, style);
  elm_object_focus_allow_set(arrow, EINA_FALSE);
  elm_object_part_content_set(m_pSpinner, part, arrow);
  elm_object_signal_emit(arrow, theme::kActionFocus, theme::kSource);
  m_connections.Smart(arrow, "clicked", [this, up](Evas_Object*, void*) { m_handlers.arrow(up); });
  evas_object_show(arrow);
  return arrow;
}

void Spinner::m_CreateFocus() {
  m_pFocus = elm_layout_add(m_pSpinner);
  if (!m_pFocus) return;
  elm_object_focus_allow_set(m_pFocus, EINA_TRUE);
  m_connections.Key(m_pFocus, m_handlers.key, kKeyPriority);
  // A layout does not say "focused", and the canvas nothing of the first one of a popup.
  efl_event_callback_add(m_pFocus, EFL_UI_FOCUS_OBJECT_EVENT_FOCUS_CHANGED, m_FocusMovedCB, this);
  elm_object_part_content_set(m_pSpinner, theme::kSpinnerFocusPart, m_pFocus);
  evas_object_show(m_pFocus);
}

void Spinner::m_FocusMovedCB(void* spinner, const _Efl_Event*) { static_cast<Spinner*>(spinner)->m_FocusMoved(); }

void Spinner::m_FocusMoved() {
  if (HasFocus() == m_hadFocus) return;
  m_hadFocus = HasFocus();
  Emit(m_hadFocus ? theme::kActionFocus : theme::kActionUnfocus, theme::kSource);
  const auto& tell = m_hadFocus ? m_handlers.focused : m_handlers.unfocused;
  if (tell) tell();
}

void Spinner::Destroy() {
  m_connections.Clear();
  if (m_pFocus) efl_event_callback_del(m_pFocus, EFL_UI_FOCUS_OBJECT_EVENT_FOCUS_CHANGED, m_FocusMovedCB, this);
  if (m_pSpinner) evas_object_del(m_pSpinner);
  m_pSpinner = m_pFocus = m_pIncrease = m_pDecrease = nullptr;
}

void Spinner::SetName(const std::string& name) { spoken::SetName(m_pFocus, name); }

void Spinner::ShowText(const std::string& text) {
  m_text = text;
  if (!m_pSpinner) return;
  elm_spinner_special_value_add(m_pSpinner, 0, Showable(text.c_str()));
  elm_spinner_value_set(m_pSpinner, 0);
  // A spinner with arrows writes its value on a button of its own, which one that was made without them lacks.
  elm_layout_text_set(m_pSpinner, theme::kLabelText, Markup(text).c_str());
  spoken::SetState(m_pFocus, Showable(text.c_str()));
}

void Spinner::Show() {
  if (m_pSpinner) evas_object_show(m_pSpinner);
}

void Spinner::Hide() {
  if (m_pSpinner) evas_object_hide(m_pSpinner);
}

void Spinner::ShowArrows(bool shown) {
  Emit(shown ? theme::kStepping : theme::kResting, theme::kRating);
  if (shown) LightArrows(true);
}

void Spinner::LightArrows(bool lit) {
  for (Evas_Object* arrow : {m_pIncrease, m_pDecrease}) {
    if (arrow) elm_object_signal_emit(arrow, lit ? theme::kActionFocus : theme::kActionUnfocus, theme::kSource);
  }
}

void Spinner::Focus() {
  if (m_pFocus) elm_object_focus_set(m_pFocus, EINA_TRUE);
}

void Spinner::PressArrow(bool up) {
  Evas_Object* arrow = up ? m_pIncrease : m_pDecrease;
  if (arrow) elm_object_signal_emit(arrow, theme::kPressed, theme::kSource);
}

void Spinner::Emit(const char* signal, const char* source) {
  if (m_pSpinner) elm_object_signal_emit(m_pSpinner, signal, source);
}
