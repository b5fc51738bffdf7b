// Facts of the signal on screen: live measures, what is tuned, and on some sets the tuner's own frequency.
#pragma once

#include <Ecore.h>

#include <string>
#include <vector>

#include "HistoryAbove.h"
#include "TvsUtil.h"
#include "ViewWindowBase.h"

class CViewSignalInfoWindow : public CViewWindowBase {
 public:
  /// One row.
  struct SignalInfoData {
    explicit SignalInfoData(std::string menuID = "Invalid", std::string title = "Title", std::string value = "Value");
    SignalInfoData(const SignalInfoData& other);
    SignalInfoData& operator=(const SignalInfoData&) = default;
    ~SignalInfoData() = default;

    std::string strMenuID, strTitle, strValue;
  };

  explicit CViewSignalInfoWindow(const char* menuID);

 protected:
  int t_GetBaseType() override;
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Resume() override;
  void t_Pause() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  void t_SetButtonSettingInfo() override;
  void t_InitWindowProperty() override;
  void t_ProcessDefaultButtonOneClickCallBack() override;
  void t_ProcessDefaultButtonOneKeyPressCallBack(std::string keyName) override;
  void t_ProcessDefaultButtonTwoClickCallBack() override;
  void t_ProcessDefaultButtonTwoKeyPressCallBack(std::string keyName) override;

  virtual void t_CreateContent();
  virtual void t_DecorateBySignalInfoType();
  virtual void t_FetchDataAsync();
  virtual void t_LoopRefresh();
  virtual void t_ChannelChangeRefresh();
  virtual void t_SetContent();
  virtual void t_AddDVBSetTuneAction();
  virtual void t_AddContentItems();
  virtual void t_CreateSignalImage();
  virtual void t_HandleSignalStrength();
  virtual void t_RegisterSpcialKey(bool take);

  void t_HandleAdditionalSignalInfoCases();

 private:
  static SignalInfoData m_FetchDataAsync(const char* id, void* window);
  static void m_ReadValue(SignalInfoData& row);
  void m_KeepRow(const SignalInfoData& row);
  bool m_CreateItemClasses();
  void m_StopRefresh();
  void m_RefreshMeasures(int strength, int quality, int ber);
  bool m_HasSignalImage() const;
  std::string m_Hint() const;
  std::string m_GetReadContent() const;
  std::string m_SetTuneGetReadContent() const;

  static Eina_Bool m_UpdateChannelInformationCb(void* data);
  static char* m_ItemGetText(void* data, Evas_Object* list, const char* part);
  static char* m_ItemGetTextReverse(void* data, Evas_Object* list, const char* part);
  static Evas_Object* m_ItemGetContent(void* data, Evas_Object* list, const char* part);
  static void m_GenlistSelectedCB(void* data, Evas_Object* list, void* item);

  Evas_Object* m_pContentLayout = nullptr;
  Evas_Object* m_pContentList = nullptr;
  Evas_Object* m_pActionList = nullptr;
  Evas_Object* m_pImageLayout = nullptr;
  Elm_Genlist_Item_Class* m_pTextClass = nullptr;
  Elm_Genlist_Item_Class* m_pBarClass = nullptr;
  Elm_Genlist_Item_Class* m_pActionClass = nullptr;
  Ecore_Timer* m_pRefreshTimer = nullptr;
  HistoryAbove m_history;
  /// To be given back when what lies over the list has gone.
  bool m_bRowHadFocus = false;
  int m_nSignalInfoType = CTvsUtil::SIGNAL_INFO_DVB_BASIC;
  /// Rows of the lists point into these.
  std::vector<SignalInfoData> vSIActionData;
  std::vector<SignalInfoData> vSIContentData;
  /// What the tuner was on when the window was opened.
  int t_OriginalFrequency = 0;
  EBandwidth t_OriginalBandwidth = BANDWIDTH_UNKNOWN;
  std::string m_sReadBuff;

  static int m_lastSignalStrength;
  static int m_lastSignalQuality;
  static int m_lastBER;
  /// The channel is not settled: every value is read again, not just the measures.
  static bool m_isFullReloadNeeded;
};
