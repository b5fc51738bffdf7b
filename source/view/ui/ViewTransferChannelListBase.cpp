#include "ViewTransferChannelListBase.h"

#include <string_view>
#include <utility>

#include "Content.h"
#include "DeviceManager.h"
#include "InformationContent.h"
#include "Log.h"
#include "Spoken.h"
#include "TextUtil.h"
#include "ThemeNames.h"
#include "TransferFlow.h"
#include "Translation.h"
#include "Utils.h"

namespace {

constexpr const char* kStickImage = "r_icon_device_s_usb.webp";

}  // namespace

std::string CViewTransferChannelListBase::t_GetBaseStyle() { return theme::kRightLarge; }

std::string CViewTransferChannelListBase::t_GetWindowTitleText() { return TransferTitle(t_MenuID); }

std::vector<CViewWindowBase::Button> CViewTransferChannelListBase::t_Buttons() { return {{"SID_CANCEL"}}; }

void CViewTransferChannelListBase::t_Create() {
  CDeviceManager::GetInstance()->Initialize(false);
  m_names = t_Names();
  CViewListWindowBase::t_Create();
}

void CViewTransferChannelListBase::t_Destroy() {
  CViewListWindowBase::t_Destroy();
  m_layout = nullptr;
  if (!m_chosen) ForgetDevices();
}

void CViewTransferChannelListBase::t_AddWidgetToWindowContent() {
  if (IsTransfer(t_MenuID)) return t_AddListToUserDefineContent();
  CViewListWindowBase::t_AddWidgetToWindowContent();
}

void CViewTransferChannelListBase::t_AddListToUserDefineContent() {
  m_layout = AddLayout(t_pMainBase, theme::kTransferList);
  if (!m_layout) {
    LOG_DEBUG("Failed to Load Layout Files");
    return;
  }
  elm_object_part_text_set(m_layout, theme::kInformationText, T(t_HelpID()).c_str());
  elm_object_part_content_set(m_layout, theme::kInformationItems, t_pGenlist);
  PlaceInformation(t_pMainBase, m_layout);
}

void CViewTransferChannelListBase::t_FirstEnter(std::string& text) {
  const std::string items = spoken::Items(static_cast<int>(m_names.size()));
  text += " " + spoken::Joined({t_WindowTitle, T(t_HelpID()), items, spoken::Button("SID_CANCEL")});
}

// --- the rows ------------------------------------------------------------------------------------

bool CViewTransferChannelListBase::t_AddGenListItems() {
  t_pItemClass = NewRowClass(theme::kRow, m_ItemGetText, m_ItemGetContent);
  if (!t_pItemClass) return false;
  for (const std::string& name : m_names) {
    elm_genlist_item_append(t_pGenlist, t_pItemClass, &name, nullptr, ELM_GENLIST_ITEM_NONE, m_ItemSelectedCB, this);
  }
  return true;
}

char* CViewTransferChannelListBase::m_ItemGetText(void* data, Evas_Object*, const char* part) {
  const auto* name = static_cast<const std::string*>(data);
  return std::string_view(part) == theme::kRowText ? elm_entry_utf8_to_markup(Showable(name->c_str())) : nullptr;
}

Evas_Object* CViewTransferChannelListBase::m_ItemGetContent(void*, Evas_Object* list, const char* part) {
  return std::string_view(part) == theme::kRowBox ? Utils::GetResource(list, kStickImage) : nullptr;
}

void CViewTransferChannelListBase::t_ProcessItemSelected(void*, Evas_Object*, void* item) {
  const int index = elm_genlist_item_index_get(static_cast<Elm_Object_Item*>(item));
  if (index >= 1 && !m_chosen) t_Choose(static_cast<size_t>(index) - 1);
}

void CViewTransferChannelListBase::t_GoOn(unsigned int step) {
  if (!std::exchange(m_chosen, true)) t_GoTo(step);
}
