// When the signal was weak: of the tuner's channels as a list, of an HDMI input as an explanation.
#pragma once

#include <string>
#include <vector>

#include "DataList.h"
#include "ViewWidgetListWindowBase.h"

class CViewWeakSignalHistoryWindow : public CViewWidgetListWindowBase {
 public:
  enum CURRENT_SOURCE_TYPE { SOURCE_BROADCAST = 0, SOURCE_HDMI = 1 };

  explicit CViewWeakSignalHistoryWindow(const char* menuID);

  /// The rows, newest first, those without a time last; none for an HDMI input.
  void GetData(std::vector<DataInfo>& rows, CURRENT_SOURCE_TYPE sourceType);

 protected:
  /// What a time stamp is made of.
  enum STAMP_TYPE { STAMP_NONE = 0, STAMP_WORD_FIRST = 1, STAMP_WORD_LAST = 2, STAMP_24_HOURS = 3 };

  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Resume() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  std::vector<Button> t_Buttons() override;
  void t_ProcessListFocusCB(Evas_Object* list, void* item) override;
  void t_ProcessListUnFocusCB(Evas_Object* list, void* item) override;
  void t_AddListToUserDefineContent() override;
  virtual void t_SetListProperty();

  static int m_GetTimeStampType(int tokenCount);
  /// Negative when the new stamp is the older one, positive when it is the newer one. `newTokens` are four, null
  /// where the stamp has no more.
  static int m_CompareTime(int type, char** newTokens, std::string sortedTimeStamp);
  /// -1 for a number that no port has.
  static int m_ConvertHDMINumberToESource(int number);
  static CURRENT_SOURCE_TYPE m_GetCurrentSource();

 private:
  void m_RegisterProvider();
  void m_AddRow(std::vector<DataInfo>& rows, DataInfo row);
  bool m_HasShadows() const;
  void m_ShowShadow(bool& shown, bool show, const char* signal);

  Evas_Object* m_pContentLayout = nullptr;
  int m_nRowCount = 0;
  bool m_bTopShadow = false;
  bool m_bBottomShadow = false;
  CURRENT_SOURCE_TYPE m_eSourceType;
  bool m_bProvides = false;
};
