// What is connected to the HDMI input on screen, and what comes in from it.
#pragma once

#include <string>

#include "HistoryAbove.h"
#include "ViewWindowBase.h"
#include "tvs_types.h"

class CViewHDMIInfoWindow : public CViewWindowBase {
 public:
  explicit CViewHDMIInfoWindow(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  int t_GetBaseType() override;
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_Pause() override;
  void t_Resume() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  void t_SetButtonSettingInfo() override;
  void t_InitWindowProperty() override;
  void t_ProcessDefaultButtonOneClickCallBack() override;
  void t_ProcessDefaultButtonTwoClickCallBack() override;
  void t_ProcessDefaultButtonThreeClickCallBack() override;

  /// Takes the number keys and the key for more, or gives them back. The window lets them do nothing.
  virtual void t_RegisterSpcialKey(bool take);
  virtual void t_CreateContent();
  virtual void t_SetContent();
  virtual void t_AddContentItems();

 private:
  struct Fact {
    std::string title;
    std::string value;
    /// The value as far as there is room for it.
    std::string shown;
  };

  void m_GetCurrentSource();
  static bool m_IsHDBTOn(ESource source);
  std::string m_GetCurrentHDMIPort() const;
  std::string m_GetCurrentHDMIDeviceName() const;
  std::string m_GetCurrentHDMIResolution() const;
  static void m_LaunchHDMITroubleShooting();
  std::string m_GetReadContent();
  bool m_IsRegular() const { return t_DefaultButtonNum > 1; }

  static char* m_ItemGetText(void* data, Evas_Object* object, const char* part);
  static char* m_ItemGetTextReverse(void* data, Evas_Object* object, const char* part);

  Evas_Object* m_pContentLayout = nullptr;
  Evas_Object* m_pList = nullptr;
  Elm_Genlist_Item_Class* m_pItemClass = nullptr;
  HistoryAbove m_history;
  Fact m_source, m_resolution;
  std::string m_sReadBuff;
  ESource m_eCurrentSource = static_cast<ESource>(-1);
};
