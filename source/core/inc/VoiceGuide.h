// Reads a window's first words out once it is on screen.
#pragma once

#include <Ecore.h>

#include <string>

class CVoiceGuide {
 public:
  static CVoiceGuide* GetInstance();
  static void ReleaseInstance();
  virtual ~CVoiceGuide();

  /// Reads `text` once after `delaySeconds`, in place of a text still waiting; what is being read is
  /// stopped (`stopFirst`) or interrupted at once. False for an empty text.
  bool StartVoiceGuide(const char* text, double delaySeconds, bool stopFirst);
  /// Forgets the text that is waiting.
  void Cancel();

 private:
  static Eina_Bool m_ReadOutCB(void* data);
  void m_DelTimer();

  std::string m_guide;
  Ecore_Timer* m_timer = nullptr;
  static CVoiceGuide* t_pInstance;
};

/// Reads a text out when the voice guide is on, after the time that a screen takes to change.
void Speak(const std::string& text);
/// The same at once: for what is said as a view goes.
void SayNow(const std::string& text);
