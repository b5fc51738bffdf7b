// All satellites that the set knows, with a tick for each one in use; the whole choice is stored on Save.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "ViewListWindowBase.h"
#include "tvs_types.h"

class ISatellite;
class ISatelliteSettings;

class CViewSatelliteSelectionWindow : public CViewListWindowBase {
 public:
  explicit CViewSatelliteSelectionWindow(const char* menuID) : CViewListWindowBase(menuID) {}

  /// The order of the rows: from satellite 1 to the end of the list, then from its beginning to satellite 1, and the
  /// user's own satellites last by their IDs. Without a satellite 1 the others stay in their order.
  static std::vector<TSSatellite*> t_ReorderSatelliteList(const std::vector<TSSatellite*>& satellites);

 protected:
  void t_Create() override;
  void t_FirstEnter(std::string& text) override;
  std::string t_GetBaseStyle() override;
  std::string t_GetWindowTitleText() override;
  std::vector<Button> t_Buttons() override;
  void t_FocusFirst() override { t_FocusButton(0); }
  bool t_AddGenListItems() override;
  void t_AddListToUserDefineContent() override;
  void t_ConfigueTTS(Evas_Object* item) override;

 private:
  struct Row {
    std::string name;
    CViewSatelliteSelectionWindow* window;
  };

  void m_PrepareSatelliteInfo();
  void m_KeepButtonsApart();
  bool m_ReadMode(TSTvMode& mode);
  void m_AddSatellites(const std::vector<TSSatellite*>& satellites, ISatelliteSettings& settings, const TSTvMode& mode);
  static std::vector<TSSatellite*> m_ReadSatellites(ISatellite& service);
  bool m_ExistChannelByCategory(unsigned long long satelliteId);
  /// In key order, each told to the log.
  std::vector<int> m_SelectedIDs() const;
  void m_Save();

  static char* m_ItemGetText(void* data, Evas_Object* list, const char* part);
  static Evas_Object* m_ItemGetContent(void* data, Evas_Object* list, const char* part);
  static void m_ProcessSelectedCB(void* data, Evas_Object* list, void* item);
  void m_Toggle(const std::string& name, bool selected);
  void m_CheckSave();
  std::string m_Spoken(const std::string& name) const;

  /// Two satellites of one name share an entry, and the later one's ID.
  std::map<std::string, int> m_satelliteIDs;
  std::map<std::string, bool> m_selection;
  /// In row order; not changed in number while there is a list.
  std::vector<Row> m_items;
};
