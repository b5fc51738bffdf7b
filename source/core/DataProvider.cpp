#include "DataProvider.h"

#include <string>
#include <string_view>

#include "Log.h"
#include "TextUtil.h"
#include "settings_api.h"

namespace {

constexpr size_t kBufferSize = 512;

struct ItemStyle {
  std::string_view id;
  const char* style;
};

constexpr ItemStyle kStyles[] = {
    {"signal-information-biterrlevel", "slider.information"},
    {"signal-information-strength", "slider.information"},
    {"signal-information-quality", "slider.information"},
    {"signal-information-program", "information"},
    {"signal-information-physical", "information"},
    {"signal-information-modulation", "information"},
    {"signal-information-snr", "information"},
    {"signal-information-status", "information"},
    {"signal-information-antenna", "information"},
    {"signal-information-serviceid", "information"},
    {"signal-information-multiplex", "information"},
    {"signal-information-channelid", "information"},
    {"signal-information-bandwidth", "controlpopup"},
    {"signal-information-frequence", "controlpopup"},
    {"signal-information-weakhistory", "weakhistorywindow"},
    {"hdmi-delay-level", "ctxpopup.bottom"},
};

void Copy(char* out, const std::string& text) { CopyText(out, kBufferSize, text); }

bool IsNull(const char* id) {
  if (!id) LOG_DEBUG("Null");
  return !id;
}

}  // namespace

std::string DisplayName(const std::string& id) {
  std::string name;
  SettingsAPI::Get()->GetItemDisplayName(id, name);
  return name;
}

std::string DisplayValue(const std::string& id) {
  std::string name, value;
  SettingsAPI::Get()->GetItemValue(id, name, value);
  return name;
}

bool CMenuDataProvider::GetItemValue(const char* id, char* valueName, char* value) {
  if (IsNull(id)) return false;
  std::string name, text;
  const bool result = SettingsAPI::Get()->GetItemValue(id, name, text);
  if (result) {
    Copy(valueName, name);
    Copy(value, text);
  }
  LOG_DEBUG("Ret[%d], Menu Id : %s, Selected Item Value Name : %s, Selected Item Value : %s", result, id, name.c_str(),
            text.c_str());
  return result;
}

bool CMenuDataProvider::GetItemDisplayName(const char* id, char* name) {
  if (IsNull(id)) return false;
  std::string text;
  const bool result = SettingsAPI::Get()->GetItemDisplayName(id, text);
  if (result) Copy(name, text);
  LOG_DEBUG("Ret[%d], Display Name: %s", result, text.c_str());
  return result;
}

bool CMenuDataProvider::GetItemEnable(const char* id, bool) {
  if (IsNull(id)) return false;
  bool enabled = false;
  const bool result = SettingsAPI::Get()->GetItemEnable(id, enabled, -1);
  LOG_DEBUG(" Menu Id : %s, bRetValue : %d Enable: %d", id, result, enabled);
  return result && enabled;
}

bool CMenuDataProvider::GetItemVisible(const char* id) {
  if (IsNull(id)) return false;
  bool visible = false;
  const bool result = SettingsAPI::Get()->GetItemVisible(id, visible, -1);
  LOG_DEBUG(" Menu Id : %s, bRetValue : %d, eVisiableValue:%d ", id, result, visible);
  return result && visible;
}

int CMenuDataProvider::SetItemValue(const char* id, const char* value, bool flag) {
  if (IsNull(id) || IsNull(value)) return -1;
  const int result = SettingsAPI::Get()->SetItemValue(id, value, flag);
  LOG_DEBUG(" Menu Id : %s, bRetValue : %d", id, result);
  return result;
}

bool CMenuDataProvider::GetItemSettingsUIStyle(const char* id, char* style) {
  if (IsNull(id)) return false;
  for (const ItemStyle& item : kStyles) {
    if (item.id != id) continue;
    Copy(style, item.style);
    return true;
  }
  Copy(style, "UnKnown");
  return false;
}
