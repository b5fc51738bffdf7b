// The exported functions: each waits for its turn and calls one operation.
#include "tessarin.h"

#include <libintl.h>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>

#include "ChannelUtil.h"
#include "CommonUtil.h"
#include "FineTuneUtil.h"
#include "Log.h"
#include "RatingUitil.h"
#include "SatCRUtil.h"
#include "Utils.h"
#include "app_framework.h"
#include "string_util.h"
#include "util.h"
#include "vconf.h"

// gettext asks for translations again when this has changed.
extern "C" int _nl_msg_cat_cntr;

namespace {

std::mutex g_turn;

/// One call at a time: what lies behind keeps state between calls and has no lock of its own.
class Turn {
  const std::lock_guard<std::mutex> m_lock{g_turn};
};

constexpr const char* kLocaleDirectory = "/usr/apps/com.vantrel.tv.quirelle/shared/locale";

/// gettext takes the language from here, unless the locale is "C".
void UseLanguageOfTv() {
  const std::string setting = Utils::WrapMallocdString(vconf_get_str("db/menu_widget/language"));
  const std::string language = setting.substr(0, setting.find('.'));
  const char* now = getenv("LANGUAGE");
  if (language.empty() || (now && language == now)) return;
  setenv("LANGUAGE", language.c_str(), 1);
  ++_nl_msg_cat_cntr;
}

/// While it lives, this thread reads the catalogues in the TV's language, whatever locale the process has.
class Catalogue {
 public:
  Catalogue() {
    static const locale_t neutral = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    static const bool bound = bindtextdomain("quirelle", app_get_deployed_path(kLocaleDirectory)) != nullptr;
    if (!bound) LOG_ERROR("Unable to set domain");
    UseLanguageOfTv();
    m_before = uselocale(neutral);
  }
  ~Catalogue() { uselocale(m_before); }

 private:
  locale_t m_before;
};

}  // namespace

// --- texts ---------------------------------------------------------------------------------------

char* Tessarin_CombinateStrings(const char* stringId, const char* a1, const char* a2, const char* a3, const char* a4) {
  const Turn turn;
  LOG_DEBUG("Tessarin_CombinateStrings");
  const Catalogue catalogue;
  char text[512] = {};
  CStringUtil::CombinateStrings(text, sizeof text, Utils::GetTranslationStr(stringId).c_str(), a1, a2, a3, a4);
  return strdup(text);
}

char* Tessarin_GetCurrentDateString() {
  const Turn turn;
  return strdup(CommonUtil::GetCurrentDateStr().c_str());
}

char* Tessarin_GetCurrentCountryCode() {
  const Turn turn;
  return Utils::GetCountryCode();
}

// --- single-cable reception ----------------------------------------------------------------------

bool Tessarin_FlagVisibleSatCRTwoTuner() {
  const Turn turn;
  LOG_DEBUG("Tessarin_FlagVisibleSatCRTwoTuner");
  const bool result = CUtil::FlagVisibleSatCRTwoTuner();
  LOG_DEBUG("Tessarin_FlagVisibleSatCRTwoTuner result = %s", result ? "true" : "false");
  return result;
}

bool Tessarin_SendSatCRCommand(int tunerId, int command) {
  const Turn turn;
  LOG_DEBUG("Tessarin_SendSatCRCommand");
  return SatCRUtils::SendSatCRCommand(tunerId, static_cast<ESatCRCommand>(command));
}

char* Tessarin_GetSatCRProgress(int tunerId) {
  const Turn turn;
  LOG_DEBUG("Tessarin_GetSatCRProgress");
  return SatCRUtils::GetSatCRProcessStatusAsJsonString(tunerId);
}

bool Tessarin_IsSatCRCommandSuccess(int tunerId, int slotFrequency, int processType) {
  const Turn turn;
  LOG_DEBUG("Tessarin_IsSatCRCommandSuccess");
  return SatCRUtils::IsSatCRCommandSuccess(tunerId, slotFrequency, processType);
}

int Tessarin_GetSlotFrequency(int tunerId) {
  const Turn turn;
  LOG_DEBUG("Tessarin_GetSlotFrequency");
  return SatCRUtils::GetSlotFrequency(tunerId);
}

int Tessarin_SetSatCRSlotFrequency(int tunerId, int slotFrequency) {
  const Turn turn;
  LOG_DEBUG("Tessarin_SetSatCRSlotFrequency");
  return SatCRUtils::SetSlotFrequency(tunerId, slotFrequency);
}

// --- satellites and the dish ---------------------------------------------------------------------

void Tessarin_UserStorePosition() {
  const Turn turn;
  LOG_DEBUG("Tessarin_UserStorePosition");
  Utils::UserStorePosition();
}

void Tessarin_InstallerStorePosition() {
  const Turn turn;
  LOG_DEBUG("Tessarin_InstallerStorePosition");
  Utils::InstallerStorePosition();
}

void Tessarin_InstallerGoToZero() {
  const Turn turn;
  LOG_DEBUG("Tessarin_InstallerGoToZero");
  Utils::InstallerGoToZero();
}

void Tessarin_InstallerResetLimit() {
  const Turn turn;
  LOG_DEBUG("Tessarin_InstallerResetLimit");
  Utils::InstallerResetLimit();
}

int Tessarin_TuneAloneSelectedTransponder(bool enablePositioner) {
  const Turn turn;
  LOG_DEBUG("Tessarin_TuneAloneSelectedTransponder");
  return ChannelUtil::TuneAloneSelectedTransponder(enablePositioner);
}

int Tessarin_ResetSatelliteSettings() {
  const Turn turn;
  return Utils::ResetSatelliteSettings();
}

// --- fine tuning ---------------------------------------------------------------------------------

int Tessarin_GetTunerMft() {
  const Turn turn;
  return FineTuneUtil::GetTunerMft();
}

void Tessarin_PresetTunerMft(int value) {
  const Turn turn;
  FineTuneUtil::PresetTunerMft(value);
}

void Tessarin_SetTunerMft() {
  const Turn turn;
  FineTuneUtil::SetTunerMft();
}

void Tessarin_ResetTurnerMft() {
  const Turn turn;
  FineTuneUtil::ResetTurnerMft();
}

void Tessarin_SetFineTuneType() {
  const Turn turn;
  FineTuneUtil::SetFineTuneType();
}

void Tessarin_ResetFinetuneType() {
  const Turn turn;
  FineTuneUtil::ResetFinetuneType();
}

void Tessarin_SetFinetuneFreq(int frequency) {
  const Turn turn;
  FineTuneUtil::SetFinetuneFreq(frequency);
}

// --- ratings -------------------------------------------------------------------------------------

char* Tessarin_GetRatingInfo() {
  const Turn turn;
  LOG_DEBUG("Tessarin_GetRatingInfo");
  return RatingUtils::GetRatingInfoAsJsonString();
}

bool Tessarin_GetRRSLock(int dimension, int rating) {
  const Turn turn;
  LOG_INFO("Get rating lock for rating: %d of dimension: %d", rating, dimension);
  bool lock = false;
  if (RatingUtils::GetRRSLock(dimension, rating, &lock) != -1) return lock;
  LOG_ERROR("CTvService::GetRRSLock failed.");
  return false;
}

int Tessarin_SetRRSLock(int dimension, int rating, bool lock) {
  const Turn turn;
  LOG_DEBUG("Tessarin_SetRRSLock");
  return RatingUtils::SetRRSLock(dimension, rating, lock);
}

// --- the channel list ----------------------------------------------------------------------------

void Tessarin_InitiateExportToTemp(const char* path) {
  const Turn turn;
  Utils::ExportChannelList(path ? path : "");
}

int Tessarin_LoadCopiedChannelList(char* zipFilePath) {
  const Turn turn;
  return Utils::LoadImportedChannelList(zipFilePath);
}
