#include "SatCRUtil.h"

#include <json/json.h>

#include <cstring>
#include <memory>
#include <sstream>

#include "Log.h"
#include "Utils.h"
#include "tvs_api.h"

namespace {

constexpr int kDetectFirst = 1, kDetectSecond = 2;

unsigned short TunerOf(int tunerId) { return static_cast<unsigned short>(tunerId); }

/// Null without one; the wrapper owns it.
ISatelliteSettings* SettingsOf(CTVSApiWrapper& api) {
  ISatelliteSettings* settings = api.CreateSatelliteSettings();
  if (!settings) LOG_DEBUG("pSatelliteSettings is null");
  return settings;
}

}  // namespace

bool SatCRUtils::SendSatCRCommand(int tunerId, ESatCRCommand command) {
  TSSatCRSettings satCrSetting;
  if (!Utils::GetSatCRSettings(tunerId, satCrSetting)) return false;
  CTVSApiWrapper api;
  ISatelliteControl* control = api.CreateSatelliteControl();
  if (!control) {
    LOG_ERROR("CreateSatelliteControl fails");
    return false;
  }
  LOG_DEBUG("SendSatCRCommand.nTunerId[%d] eSatCRCmd[%d] satCrSetting.slotNumber[%d] satCrSetting.slotFrequency[%d]",
            tunerId, command, satCrSetting.slotNumber, satCrSetting.slotFrequency);
  control->SendSatCRCommand(TunerOf(tunerId), command, satCrSetting);
  return true;
}

int SatCRUtils::SetSlotFrequency(int tunerId, int slotFrequency) {
  if (slotFrequency < 1) {
    LOG_DEBUG("invalid slot frequency");
    return -1;
  }
  CTVSApiWrapper api;
  ISatelliteSettings* settings = SettingsOf(api);
  if (!settings) return -1;
  const int result = settings->SetSatCRSlotFrequency(TunerOf(tunerId), slotFrequency);
  if (result != 1) LOG_ERROR("SetSatCRSlotFrequency fails");
  return result;
}

int SatCRUtils::GetSlotFrequency(int tunerId) {
  TSSatCRSettings satCrSetting;
  return Utils::GetSatCRSettings(tunerId, satCrSetting) ? satCrSetting.slotFrequency : -1;
}

bool SatCRUtils::IsSatCRCommandSuccess(int tunerId, int slotFrequency, int processType) {
  if (slotFrequency < 0) return false;
  if (processType == kDetectFirst || processType == kDetectSecond) return slotFrequency != 0;
  const int stored = GetSlotFrequency(tunerId);
  if (stored < 0) {
    LOG_DEBUG("get slot frequency falis");
    return false;
  }
  return stored == slotFrequency;
}

SatCRUtils::SatCRDetectStatus SatCRUtils::GetSatCRProcessStatus(int tunerId) {
  SatCRDetectStatus status;
  status.SlotFrequency = GetSlotFrequency(tunerId);
  if (status.SlotFrequency < 0) {
    LOG_DEBUG("get slot frequency failed");
    return {};
  }
  CTVSApiWrapper api;
  ISatelliteSettings* settings = SettingsOf(api);
  if (!settings) return {};
  const int result =
      settings->GetSatCRDetectStatus(status.SlotNumber, status.SlotFrequency, status.Progress, TunerOf(tunerId));
  if (result != 1) {
    LOG_DEBUG("GetSatCRDetectStatus fails. nRetVal[%d]", result);
    return {};
  }
  LOG_DEBUG("nSlotFrequency[%d] nSlotNumber[%d] nProgress[%d]", status.SlotFrequency, status.SlotNumber,
            status.Progress);
  return status;
}

std::string SatCRUtils::SerializeSatCRDetectStatus(SatCRDetectStatus& status) {
  Json::Value object(Json::objectValue);
  object["SlotFrequency"] = status.SlotFrequency;
  object["SlotNumber"] = status.SlotNumber;
  object["Progress"] = status.Progress;
  std::ostringstream stream;
  const std::unique_ptr<Json::StreamWriter> writer(Json::StreamWriterBuilder().newStreamWriter());
  writer->write(object, &stream);
  std::string text = stream.str();
  LOG_DEBUG("json size: %zu", text.size());
  LOG_DEBUG("%s", text.c_str());
  return text;
}

char* SatCRUtils::GetSatCRProcessStatusAsJsonString(int tunerId) {
  SatCRDetectStatus status = GetSatCRProcessStatus(tunerId);
  return strdup(SerializeSatCRDetectStatus(status).c_str());
}
