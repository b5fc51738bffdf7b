// A window with a progress bar inside a content layout.
#pragma once

#include <memory>

#include "ViewWindowBase.h"
#include "WidgetProgressBar.h"

class CViewProgressWindowBase : public CViewWindowBase {
 public:
  explicit CViewProgressWindowBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  std::string t_GetBaseStyle() override;

  /// Replaces the bar's style, part and text.
  virtual void t_SetProgressSettingInfo() {}
  /// Names the content group and its least size.
  virtual void t_SetContentSettingInfo() {}
  virtual std::unique_ptr<WidgetProgressBar> t_CreateProgressBar(Evas_Object* parent);
  virtual bool t_CreateOtherPartIntoContentLayout(Evas_Object* layout);
  /// Makes the bar fill from left to right, as numbers run in every language.
  virtual void t_SetProgressProperty();
  virtual void t_PickTableToWindowContent(Evas_Object* table);
  virtual void t_ProcessProgressBarKeyPress(std::string keyName);
  virtual void t_RegisterProgressEvent();
  virtual void t_UnRegisterProgressEvent();

  /// Shows how far it is, in whole percent, and speaks each quarter. Nothing happens without a bar.
  void t_SetProgress(int percent);

  std::unique_ptr<WidgetProgressBar> t_pProgressBar;
  Evas_Object* t_pContentLayout = nullptr;
  Evas_Object* t_pContentTable = nullptr;
  bool t_FlagProgressText = false;
  std::string t_ProgressStyle;
  std::string t_ProgressPart;
  std::string t_ProgressText;
  std::string t_ContentGroup;
  int t_ContentMinWidth = 0;
  int t_ContentMinHeight = 0;

 private:
  const char* m_CreateParts();
  bool m_CreateContentLayout();
  bool m_CreateProgressBar();
  void m_SpeakProgress(int percent);

  /// How much was spoken of, in quarters, and when something was last read out.
  int m_quarters = 0;
  double m_spokenAt = 0.0;
};
