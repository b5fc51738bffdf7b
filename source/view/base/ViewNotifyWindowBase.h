// A notice: a text and one button, above a dimmed screen where a subclass asks for it.
#pragma once

#include <memory>

#include "ViewWindowBase.h"
#include "WidgetTextBlock.h"

class CViewNotifyWindowBase : public CViewWindowBase {
 public:
  explicit CViewNotifyWindowBase(const char* menuID) : CViewWindowBase(menuID) {}

 protected:
  static constexpr size_t kDisplayTextSize = 1024;

  void t_Create() override;
  void t_Destroy() override;
  void t_Show() override;
  void t_Hide() override;
  std::string t_GetBaseStyle() override;
  std::vector<Button> t_Buttons() override;

  virtual void t_CreateDisplayText();
  /// Puts the string ID of the notice into `buffer`, `kDisplayTextSize` zeroed characters.
  virtual void t_GetDisplayText(char* buffer);
  virtual void t_InitDisplayLabel();

  std::unique_ptr<WidgetTextBlock> t_pTextBlock;
  std::string t_DisplayText;
  bool t_FlagDim = false;
};
