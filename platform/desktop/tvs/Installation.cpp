#include "Installation.h"

#include <cstdio>
#include <cstdlib>
#include <regex>

#include "Gate.h"
#include "State.h"

namespace desktop {

namespace {

constexpr int kHalfRound = 1800, kRound = 3600;

/// Stands among the satellites of a mode that has a choice of its own.
constexpr int kChosen = 0;

#define SETTINGS_COLUMNS "position, lnb_power, slot, diseqc, low, high, switch, voltage, tone, user_band"

constexpr const char* kKeepSatellitesSql = "INSERT INTO made_satellite SELECT id, " SETTINGS_COLUMNS " FROM satellite";
constexpr const char* kKeepSettingsSql =
    "INSERT INTO made_setting SELECT key, value FROM setting WHERE key GLOB "
    "'db/menu/broadcasting/channel-settings/satellite-system/*'";
constexpr const char* kKeepTunersSql = "INSERT INTO made_satcr SELECT tuner, slot, frequency FROM satcr";

constexpr const char* kResetSatellitesSql =
    "UPDATE satellite SET (" SETTINGS_COLUMNS ") = (SELECT " SETTINGS_COLUMNS
    " FROM made_satellite m WHERE m.id = satellite.id) WHERE (?1 = -1 OR id = ?1) AND id IN (SELECT id FROM "
    "made_satellite)";

/// A picture that is on a transponder of the user goes back to that of its channel.
constexpr const char* kLeaveSql =
    "UPDATE picture SET transponder = (SELECT transponder FROM service WHERE id = picture.service), tuned_at = ? "
    "WHERE transponder IN (SELECT id FROM transponder WHERE user_defined = 1)";

constexpr const char* kForgetSql = "DELETE FROM transponder WHERE user_defined = 1";
constexpr const char* kResetSettingsSql =
    "UPDATE setting SET value = (SELECT value FROM made_setting m WHERE m.key = setting.key) "
    "WHERE key IN (SELECT key FROM made_setting)";
constexpr const char* kResetTunersSql =
    "UPDATE satcr SET (slot, frequency) = (SELECT slot, frequency FROM made_satcr m WHERE m.tuner = satcr.tuner), "
    "command = 2 WHERE tuner IN (SELECT tuner FROM made_satcr)";

/// A transponder of the user is heard as well as the one on air that it stands for. For a satellite of the user that is
/// one of a satellite at its position: half a degree aside the dish hears both.
constexpr const char* kHeardSql = R"sql(
SELECT t.standard, t.strength, t.quality, t.ber, t.snr
FROM transponder t JOIN satellite s ON s.id = t.satellite JOIN satellite mine ON mine.id = ?1
WHERE t.antenna = 2 AND t.frequency BETWEEN ?2 - 3000 AND ?2 + 3000 AND t.user_defined = 0 AND t.polarisation = ?4
  AND abs(t.symbol_rate - ?3) * 50 <= t.symbol_rate AND (s.id = mine.id OR (mine.user_defined = 1
  AND min(abs(s.position - mine.position), 3600 - abs(s.position - mine.position)) <= 5))
ORDER BY min(abs(s.position - mine.position), 3600 - abs(s.position - mine.position)), abs(t.frequency - ?2) LIMIT 1
)sql";

void Hear(int64_t transponder, const Query& heard, bool found) {
  Query q("UPDATE transponder SET standard = ?, strength = ?, quality = ?, ber = ?, snr = ? WHERE id = ?");
  if (!found || heard.IsNull(0)) {
    q.Bind(nullptr);
  } else {
    q.Bind(heard.Int(0));
  }
  for (int column = 1; column <= 4; ++column) q.Bind(found ? heard.Int(column) : 0);
  q.Bind(transponder).Run();
}

}  // namespace

// --- satellites in use ---------------------------------------------------------------------------

TSTvMode MainMode() {
  Query q("SELECT antenna, service_mode FROM picture WHERE profile = ?", PROFILE_MAIN);
  if (!q.Row()) return {};
  return {static_cast<EAntennaMode>(q.Int(0)), static_cast<EServiceMode>(q.Int(1))};
}

TSTvMode ChoosingMode(const TSTvMode& mode) {
  Query q("SELECT 1 FROM selected WHERE antenna = ? AND service_mode = ? AND satellite = ?", mode.antennaMode,
          mode.serviceMode, kChosen);
  return q.Row() ? mode : TSTvMode();
}

bool IsSelected(int satellite, const TSTvMode& mode) {
  const TSTvMode choosing = ChoosingMode(mode);
  Query q("SELECT 1 FROM selected WHERE antenna = ? AND service_mode = ? AND satellite = ? AND satellite <> ?",
          choosing.antennaMode, choosing.serviceMode, satellite, kChosen);
  return q.Row();
}

bool SelectSatellites(const std::vector<int>& satellites, const TSTvMode& mode) {
  for (const int id : satellites) {
    if (!Query("SELECT 1 FROM satellite WHERE id = ?", id).Row()) return false;
  }
  Store::Get().Write([&] {
    const auto insert = [&](int id) {
      Query("REPLACE INTO selected VALUES (?, ?, ?)", mode.antennaMode, mode.serviceMode, id).Run();
    };
    Query("DELETE FROM selected WHERE antenna = ? AND service_mode = ?", mode.antennaMode, mode.serviceMode).Run();
    insert(kChosen);
    for (const int id : satellites) insert(id);
  });
  return true;
}

void SelectSatellite(int satellite, bool selected, const TSTvMode& mode) {
  if (IsSelected(satellite, mode) == selected) return;
  Store::Get().Write([&] {
    const TSTvMode choosing = ChoosingMode(mode);
    std::vector<int> satellites;
    Query q("SELECT satellite FROM selected WHERE antenna = ? AND service_mode = ? AND satellite NOT IN (?, ?)",
            choosing.antennaMode, choosing.serviceMode, kChosen, satellite);
    while (q.Row()) satellites.push_back(static_cast<int>(q.Int(0)));
    if (selected) satellites.push_back(satellite);
    SelectSatellites(satellites, mode);
  });
}

// --- satellites of the user ----------------------------------------------------------------------

std::string LongitudeText(int position) {
  const bool east = position <= kHalfRound;
  const int tenths = east ? position : kRound - position;
  char text[32] = "";
  std::snprintf(text, sizeof text, "%d.%d %c", tenths / 10, tenths % 10, east ? 'E' : 'W');
  return text;
}

std::optional<int> ParseLongitude(const std::string& text) {
  static const std::regex form("(0|[1-9][0-9]{0,2})\\.([0-9]) ([EW])");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return {};
  const int tenths = std::atoi(parts.str(1).c_str()) * 10 + std::atoi(parts.str(2).c_str());
  if (tenths > kHalfRound) return {};
  return parts.str(3) == "E" ? tenths : (kRound - tenths) % kRound;
}

std::string UserSatelliteItem(int number) { return "setting-user-sat-" + std::to_string(number); }

void MoveUserSatellite(int number, int position, const std::string& text) {
  const int satellite = SATELLITE_USER_FIRST + number - 1;
  Store::Get().Write([&] {
    Query("UPDATE satellite SET position = ? WHERE id = ?", position, satellite).Run();
    Query("UPDATE item SET value = ? WHERE id = ?", text, UserSatelliteItem(number)).Run();
    HearUserTransponders(satellite);
  });
}

void HearUserTransponders(int satellite) {
  Query q("SELECT id, frequency, symbol_rate, polarisation FROM transponder WHERE satellite = ? AND user_defined = 1",
          satellite);
  while (q.Row()) {
    Query heard(kHeardSql, satellite, q.Int(1), q.Int(2), q.Int(3));
    const bool found = heard.Row();
    Hear(q.Int(0), heard, found);
  }
}

// --- as the TV was made --------------------------------------------------------------------------

namespace {

/// A satellite of the user is where its row says: its item says so too.
void MoveBack(int number) {
  Query q("SELECT position FROM satellite WHERE id = ?", SATELLITE_USER_FIRST + number - 1);
  if (!q.Row()) return;
  const auto position = static_cast<int>(q.Int(0));
  MoveUserSatellite(number, position, LongitudeText(position));
}

}  // namespace

void KeepAsMade() {
  for (const char* sql : {kKeepSatellitesSql, kKeepSettingsSql, kKeepTunersSql}) Query(sql).Run();
}

void ResetSatellite(int satellite) {
  Store::Get().Write([&] {
    Query(kResetSatellitesSql, satellite).Run();
    for (int number = 1; number <= kUserSatellites; ++number) MoveBack(number);
  });
}

void ResetInstallation() {
  Store::Get().Write([] {
    Query(kLeaveSql, NowMilliseconds()).Run();
    for (const char* sql : {kForgetSql, kResetSettingsSql, kResetTunersSql}) Query(sql).Run();
    ResetSatellite(SATELLITE_NONE);
  });
}

}  // namespace desktop
