#include "VoiceGuide.h"

#include <Elementary.h>

#include "Log.h"
#include "Utils.h"
#include "toolkit_ext.h"

CVoiceGuide* CVoiceGuide::t_pInstance = nullptr;

namespace {

constexpr double kDelaySeconds = 0.2;

}  // namespace

void Speak(const std::string& text) {
  if (Utils::FlagVoiceGuideSetting()) CVoiceGuide::GetInstance()->StartVoiceGuide(text.c_str(), kDelaySeconds, false);
}

void SayNow(const std::string& text) {
  if (Utils::FlagVoiceGuideSetting()) elm_access_force_say(text.c_str());
}

CVoiceGuide* CVoiceGuide::GetInstance() {
  if (!t_pInstance) t_pInstance = new CVoiceGuide;
  return t_pInstance;
}

void CVoiceGuide::ReleaseInstance() {
  delete t_pInstance;
  t_pInstance = nullptr;
}

CVoiceGuide::~CVoiceGuide() { m_DelTimer(); }

bool CVoiceGuide::StartVoiceGuide(const char* text, double delaySeconds, bool stopFirst) {
  if (stopFirst) {
    elm_access_force_stop();
  } else {
    elm_access_force_say(" ");
  }
  m_guide.clear();
  m_DelTimer();
  if (!text || !*text) {
    LOG_DEBUG("Empty String Fail to Voice Guide");
    return false;
  }
  m_guide = text;
  LOG_DEBUG("Original Str[%d]:%s", static_cast<int>(m_guide.size()), text);
  LOG_DEBUG("The Guide Content is %s", m_guide.c_str());
  m_timer = ecore_timer_add(delaySeconds, m_ReadOutCB, this);
  return true;
}

void CVoiceGuide::Cancel() {
  m_DelTimer();
  m_guide.clear();
}

void CVoiceGuide::m_DelTimer() {
  if (m_timer) ecore_timer_del(m_timer);
  m_timer = nullptr;
}

Eina_Bool CVoiceGuide::m_ReadOutCB(void* data) {
  auto* pThis = static_cast<CVoiceGuide*>(data);
  if (!pThis) {
    LOG_DEBUG("Null Pointer");
    return ECORE_CALLBACK_CANCEL;
  }
  pThis->m_timer = nullptr;
  LOG_DEBUG("Read String Text = %s", pThis->m_guide.c_str());
  elm_access_say(pThis->m_guide.c_str());
  return ECORE_CALLBACK_CANCEL;
}
