// What is connected to the HDMI input on screen, and what comes in from it.
#pragma once

#include <string>

#include "ViewInformationWindow.h"
#include "tvs_types.h"

class CViewHDMIInfoWindow : public CViewInformationWindow {
 public:
  explicit CViewHDMIInfoWindow(const char* menuID) : CViewInformationWindow(menuID, "HDMIInfoWindow") {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  void t_FirstEnter(std::string& text) override;
  /// An HDBaseT input has nothing to do but to close.
  std::vector<Button> t_Buttons() override;

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

  std::string m_GetCurrentHDMIPort() const;
  std::string m_GetReadContent() const;
  static void m_LaunchHDMITroubleShooting();

  static char* m_ItemGetText(void* data, Evas_Object* object, const char* part);
  static char* m_ItemGetTextReverse(void* data, Evas_Object* object, const char* part);

  Evas_Object* m_pContentLayout = nullptr;
  Evas_Object* m_pList = nullptr;
  Elm_Genlist_Item_Class* m_pItemClass = nullptr;
  Fact m_source, m_resolution;
  ESource m_eCurrentSource = static_cast<ESource>(-1);
};
