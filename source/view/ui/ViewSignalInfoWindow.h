// Facts of the signal on screen: live measures, what is tuned, and on some sets the tuner's own frequency.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "Timer.h"
#include "TvsUtil.h"
#include "ViewInformationWindow.h"

class CViewSignalInfoWindow : public CViewInformationWindow {
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
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Resume() override;
  void t_Pause() override;
  void t_FirstEnter(std::string& text) override;
  bool t_HandleMenuSpecialKeyCB(void* data, int type, void* event) override;
  std::vector<Button> t_Buttons() override;
  void t_RegisterSpcialKey(bool take) override;
  void t_Stay() override;

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

  void t_HandleAdditionalSignalInfoCases();

 private:
  static SignalInfoData m_FetchDataAsync(const char* id, void* window);
  static void m_ReadValue(SignalInfoData& row);
  void m_KeepRow(const SignalInfoData& row);
  bool m_CreateItemClasses();
  void m_RefreshMeasures(int strength, int quality, int ber);
  bool m_HasSignalImage() const;
  void m_UpdateChannelInformation();
  void m_TellTuned();
  /// The rows that are known now and were not said since the tuning began.
  void m_SpeakNews(const std::vector<SignalInfoData>& rows);
  std::string m_GetReadContent() const;
  std::string m_SetTuneGetReadContent() const;

  /// Of a weak signal, for the ear.
  void m_TellWords();
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
  Timer m_refreshTimer;
  /// To be given back when what lies over the list has gone.
  bool m_bRowHadFocus = false;
  /// Rounds of the timer until the result of a tuning may be said; 0 when there is none to say.
  int m_roundsToTell = 0;
  std::set<std::string> m_said;
  int m_nSignalInfoType = CTvsUtil::SIGNAL_INFO_DVB_BASIC;
  /// Rows of the lists point into these.
  std::vector<SignalInfoData> vSIActionData;
  std::vector<SignalInfoData> vSIContentData;
  /// What the tuner was on when the window was opened.
  int t_OriginalFrequency = 0;
  EBandwidth t_OriginalBandwidth = BANDWIDTH_UNKNOWN;

  static int m_lastSignalStrength;
  static int m_lastSignalQuality;
  static int m_lastBER;
  /// The channel is not settled: every value is read again, not just the measures.
  static bool m_isFullReloadNeeded;
  /// A fact of the set, read with the rows: the strength is told with its level in words.
  static bool m_strengthInWords;
};
