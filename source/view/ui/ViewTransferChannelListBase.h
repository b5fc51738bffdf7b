// A choice in the channel-list transfer: a help text over a list of sticks, or of what is on one.
#pragma once

#include <string>
#include <vector>

#include "ViewListWindowBase.h"

class CViewTransferChannelListBase : public CViewListWindowBase {
 public:
  explicit CViewTransferChannelListBase(const char* menuID) : CViewListWindowBase(menuID) {}

 protected:
  void t_Create() override;
  void t_Destroy() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  std::vector<Button> t_Buttons() override;
  bool t_AddGenListItems() override;
  void t_AddWidgetToWindowContent() override;
  void t_AddListToUserDefineContent() override;
  void t_ProcessItemSelected(void* data, Evas_Object* list, void* item) override;

  /// What the rows say; asked for once, when the sticks are known.
  virtual std::vector<std::string> t_Names() = 0;
  virtual const char* t_HelpID() const = 0;
  /// A row, the first is 0, was selected.
  virtual void t_Choose(size_t row) = 0;
  /// The next step needs the inventory.
  void t_GoOn(unsigned int step);

 private:
  static char* m_ItemGetText(void* data, Evas_Object* list, const char* part);
  static Evas_Object* m_ItemGetContent(void* data, Evas_Object* list, const char* part);

  /// The rows point into it.
  std::vector<std::string> m_names;
  Evas_Object* m_layout = nullptr;
  bool m_chosen = false;
};
