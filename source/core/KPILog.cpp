#include "KPILog.h"

#include <cstdlib>

#include "Log.h"
#include "kpi_log.h"
#include "settings_api.h"
#include "vconf.h"

std::string CKPILog::m_strEventName;
std::string CKPILog::m_strCategory;
std::string CKPILog::m_streamDesc;

namespace {

std::string FullScreenApplication() {
  char* id = vconf_get_str("memory/appfw/current_fullscreen_appid");
  if (!id) {
    LOG_DEBUG("getting current fullscreen appid failed");
    return {};
  }
  LOG_INFO("Current Full Screen AppID = %s", id);
  std::string text = id;
  free(id);
  return text;
}

}  // namespace

bool CKPILog::m_Describe(const std::string& itemID, LOG_TYPE type) {
  std::string name, value;
  SettingsAPI::Get()->GetItemValue(itemID, name, value);
  switch (type) {
    case LOG_TYPE_SELECT_VALUE:
      m_strEventName = "SELECT_VALUE";
      m_strCategory = "EV014";
      m_streamDesc = "{sl_item=" + itemID + ";sl_value=" + value + ";appid=" + FullScreenApplication() + "}";
      return true;
    case LOG_TYPE_CLICK:
      m_strEventName = "CLICK";
      m_strCategory = "EV001";
      m_streamDesc = "{hdmilevel=" + value + "}";
      return true;
  }
  LOG_INFO("Not matched with any log types");
  return false;
}

void CKPILog::SendKpiLog(const char* itemID, LOG_TYPE type) {
  if (!m_Describe(itemID ? itemID : "", type)) return;
  LOG_DEBUG("m_streamDesc = %s", m_streamDesc.c_str());
  LOG_DEBUG("strEventName: %s, strCategory : %s, m_streamDesc : %s", m_strEventName.c_str(), m_strCategory.c_str(),
            m_streamDesc.c_str());
  const int code =
      KPILogFramework::CLogger::GetInstance()->AddEventLogSync("20_sqa", m_strCategory, m_strEventName, m_streamDesc);
  LOG_DEBUG("RetCode=%d", code);
  if (code == 0) {
    LOG_DEBUG("AddEventLog Success");
  } else {
    LOG_DEBUG("Could not add event log");
  }
}
