#include "SatCRProcessManager.h"

#include <iterator>

#include "Log.h"
#include "SatCRUtil.h"
#include "Utils.h"
#include "tvs_api.h"

namespace {

// By process type, the first is 1.
constexpr int kTuners[] = {0, 1, 0, 1};
constexpr ESatCRCommand kCommands[] = {SATCR_COMMAND_DETECT, SATCR_COMMAND_DETECT, SATCR_COMMAND_VERIFY,
                                       SATCR_COMMAND_VERIFY};
constexpr int kNoTuner = -1;

bool IsValid(int type) { return type >= 1 && type <= static_cast<int>(std::size(kTuners)); }

}  // namespace

bool CSatCRProcessManager::Start() {
  LOG_DEBUG("");
  if (IsValid(m_nProcessType)) {
    return m_SendSatCRCommand(kTuners[m_nProcessType - 1], kCommands[m_nProcessType - 1]);
  }
  LOG_ERROR("Invaild process type, m_nProcessType=%d", m_nProcessType);
  return m_SendSatCRCommand(kNoTuner, SATCR_COMMAND_STOP);
}

int CSatCRProcessManager::m_GetTunerId() const {
  if (IsValid(m_nProcessType)) return kTuners[m_nProcessType - 1];
  LOG_ERROR("Invalid process type value, m_nProcessType=%d", m_nProcessType);
  return 0;
}

bool CSatCRProcessManager::m_SendSatCRCommand(int tunerId, ESatCRCommand command) {
  return SatCRUtils::SendSatCRCommand(tunerId, command);
}

void CSatCRProcessManager::GetSatCRProcessStatus(unsigned char& progress) {
  const auto tuner = static_cast<unsigned short>(m_GetTunerId());
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_DEBUG("pSatelliteSettings is null");
    return;
  }
  unsigned char slot = 0;
  const int result = settings->GetSatCRDetectStatus(slot, m_nSlotFrequency, progress, tuner);
  if (result == 1) {
    LOG_DEBUG("nSlotFrequency[%d] nSlotNumber[%d] nProgress[%d]", m_nSlotFrequency, slot, progress);
  } else {
    LOG_DEBUG("GetSatCRDetectStatus fails. nRetVal[%d]", result);
  }
}

bool CSatCRProcessManager::m_IsDetection() const {
  return IsValid(m_nProcessType) && kCommands[m_nProcessType - 1] == SATCR_COMMAND_DETECT;
}

bool CSatCRProcessManager::m_IsVerified() const {
  const int tuner = m_GetTunerId();
  TSSatCRSettings stored;
  if (!Utils::GetSatCRSettings(tuner, stored)) return false;
  LOG_DEBUG("nTunerId[%d] nCurrentSlotFrequency[%d] nSlotFrequency[%d]", tuner, stored.slotFrequency, m_nSlotFrequency);
  return stored.slotFrequency == m_nSlotFrequency;
}

bool CSatCRProcessManager::IsSatCRCommandSuccess() {
  const bool success = m_IsDetection() ? m_nSlotFrequency > 0 : m_IsVerified();
  LOG_DEBUG("bRetValue[%d]", success);
  return success;
}

void CSatCRProcessManager::Stop() {
  m_SendSatCRCommand(m_GetTunerId(), SATCR_COMMAND_STOP);
  if (m_nSlotFrequency > 0) m_StoreFrequency();
}

void CSatCRProcessManager::m_StoreFrequency() const {
  const int tuner = m_GetTunerId();
  CTVSApiWrapper api;
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) {
    LOG_DEBUG("pSatelliteSettings is null");
    return;
  }
  if (settings->SetSatCRSlotFrequency(static_cast<unsigned short>(tuner), m_nSlotFrequency) == 1) {
    LOG_DEBUG("SetSatCRSlotFrequency nTunerId[%d] nSlotFrequency[%d]", tuner, m_nSlotFrequency);
  } else {
    LOG_ERROR("SetSatCRSlotFrequency failed. nTunerId[%d] nSlotFrequency[%d]", tuner, m_nSlotFrequency);
  }
}
