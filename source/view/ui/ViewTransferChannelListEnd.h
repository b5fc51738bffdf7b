// How a transfer of the channel list has ended; after an import the set restarts.
#pragma once

#include "Timer.h"
#include "ViewWindowBase.h"

class CViewTransferChannelListEnd : public CViewWindowBase {
 public:
  explicit CViewTransferChannelListEnd(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::vector<Button> t_Buttons() override;

  virtual std::string t_GetText();
  virtual std::string t_GetDataValue();
  virtual std::string t_GetCountryCode();
  void t_RebootBoard(bool fromTimer);

 private:
  void m_SetText(int part, const std::string& text);
  void m_AddFacts();
  void m_AnnounceReboot();
  void m_ProcessOk();
  void m_TakeExitKey(bool take);

  Evas_Object* m_layout = nullptr;
  Timer m_rebootTimer;
  bool m_exitTaken = false, m_rebooting = false;
};
