#include "Schema.h"

#include "Store.h"

namespace desktop {

const char* const kSchemaSql = R"sql(
CREATE TABLE meta (key TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;

-- settings, feature and system-information keys; type is int, bool, string or ints
CREATE TABLE setting (key TEXT PRIMARY KEY, type TEXT NOT NULL, value NOT NULL) WITHOUT ROWID;
-- what "memory/..." keys hold when the set comes up
CREATE TABLE power_on (key TEXT PRIMARY KEY, type TEXT NOT NULL, value NOT NULL) WITHOUT ROWID;

-- the settings tree; name and choice names are string IDs; kind is window, item or group
CREATE TABLE item (
  id TEXT PRIMARY KEY, parent TEXT NOT NULL, place INTEGER NOT NULL, kind TEXT NOT NULL, name TEXT NOT NULL,
  value TEXT NOT NULL DEFAULT '', enabled INTEGER NOT NULL DEFAULT 1, visible INTEGER NOT NULL DEFAULT 1
) WITHOUT ROWID;
CREATE INDEX item_parent ON item (parent, place);
CREATE TABLE choice (
  item TEXT NOT NULL, place INTEGER NOT NULL, value TEXT NOT NULL, name TEXT NOT NULL,
  enabled INTEGER NOT NULL DEFAULT 1, visible INTEGER NOT NULL DEFAULT 1, PRIMARY KEY (item, place)
) WITHOUT ROWID;

CREATE TABLE chip (
  contrast INTEGER NOT NULL, name TEXT NOT NULL, r INTEGER NOT NULL, g INTEGER NOT NULL, b INTEGER NOT NULL,
  a INTEGER NOT NULL, PRIMARY KEY (contrast, name)
) WITHOUT ROWID;

-- applications of the set, what was launched, and who is listening
CREATE TABLE application (id TEXT PRIMARY KEY, running INTEGER NOT NULL) WITHOUT ROWID;
CREATE TABLE launch (seq INTEGER PRIMARY KEY, pid INTEGER NOT NULL, application TEXT NOT NULL, extra TEXT NOT NULL);
CREATE TABLE program (pid INTEGER PRIMARY KEY, socket TEXT NOT NULL);

CREATE TABLE usage (
  seq INTEGER PRIMARY KEY, log TEXT NOT NULL, category TEXT NOT NULL, event TEXT NOT NULL, description TEXT NOT NULL
);

CREATE TABLE journal (
  seq INTEGER PRIMARY KEY, at INTEGER NOT NULL, pid INTEGER NOT NULL, operation TEXT NOT NULL,
  arguments TEXT NOT NULL, result TEXT NOT NULL, outputs TEXT NOT NULL
);
-- times is null for a fault that stays until it is healed
CREATE TABLE fault (operation TEXT PRIMARY KEY, result TEXT NOT NULL, times INTEGER) WITHOUT ROWID;

-- TV service: what the set receives. Frequencies in kHz, symbol rates in kBd; null is not known.
CREATE TABLE satellite (
  id INTEGER PRIMARY KEY, name TEXT NOT NULL, position INTEGER NOT NULL, user_defined INTEGER NOT NULL DEFAULT 0,
  motorised INTEGER NOT NULL DEFAULT 0, lnb_power INTEGER NOT NULL DEFAULT 1, slot INTEGER NOT NULL DEFAULT 1,
  diseqc INTEGER NOT NULL DEFAULT 0, low INTEGER NOT NULL DEFAULT 9750000, high INTEGER NOT NULL DEFAULT 10600000,
  switch INTEGER NOT NULL DEFAULT 11300000, voltage INTEGER NOT NULL DEFAULT 18, tone INTEGER NOT NULL DEFAULT 2,
  user_band INTEGER NOT NULL DEFAULT 0
);
-- the satellites in use in each TV mode; those of antenna -1 hold for the modes without a choice of their own, and a
-- mode that has one has satellite 0 too
CREATE TABLE selected (
  antenna INTEGER NOT NULL, service_mode INTEGER NOT NULL, satellite INTEGER NOT NULL,
  PRIMARY KEY (antenna, service_mode, satellite)
) WITHOUT ROWID;
-- what an installer changes, as the TV was made
CREATE TABLE made_satellite (
  id INTEGER PRIMARY KEY, position INTEGER NOT NULL, lnb_power INTEGER NOT NULL, slot INTEGER NOT NULL,
  diseqc INTEGER NOT NULL, low INTEGER NOT NULL, high INTEGER NOT NULL, switch INTEGER NOT NULL,
  voltage INTEGER NOT NULL, tone INTEGER NOT NULL, user_band INTEGER NOT NULL
);
CREATE TABLE made_setting (key TEXT PRIMARY KEY, value NOT NULL) WITHOUT ROWID;
CREATE TABLE made_satcr (tuner INTEGER PRIMARY KEY, slot INTEGER NOT NULL, frequency INTEGER NOT NULL);
-- satellite is null for a physical channel of air or cable; figures: percent, percent, errors per 10^7 bits, dB/100
CREATE TABLE transponder (
  id INTEGER PRIMARY KEY, satellite INTEGER, antenna INTEGER NOT NULL, number INTEGER, label TEXT,
  frequency INTEGER NOT NULL, symbol_rate INTEGER, polarisation INTEGER, fec INTEGER, modulation INTEGER,
  bandwidth INTEGER, standard INTEGER, package INTEGER, package_order INTEGER, user_defined INTEGER NOT NULL DEFAULT 0,
  strength INTEGER NOT NULL DEFAULT 0, quality INTEGER NOT NULL DEFAULT 0, ber INTEGER NOT NULL DEFAULT 0,
  snr INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX transponder_satellite ON transponder (satellite, frequency);
CREATE INDEX transponder_frequency ON transponder (antenna, frequency);
CREATE INDEX transponder_package ON transponder (package, package_order) WHERE package IS NOT NULL;
CREATE TABLE service (
  id INTEGER PRIMARY KEY, antenna INTEGER NOT NULL, service_mode INTEGER NOT NULL, type INTEGER, number INTEGER,
  profile INTEGER, frequency INTEGER, bandwidth INTEGER, modulation INTEGER, symbol_rate INTEGER,
  major INTEGER NOT NULL DEFAULT 65535, minor INTEGER NOT NULL DEFAULT 65535, program INTEGER, code_rate INTEGER,
  stream INTEGER, locked_mode INTEGER, is_default INTEGER, network INTEGER, original_network INTEGER,
  satellite INTEGER, standard INTEGER, transponder INTEGER, favourites INTEGER, name TEXT,
  fine_tune_type INTEGER, fine_tune_offset INTEGER
);
-- the pictures on screen; service is what was chosen last, transponder what the tuner is on
CREATE TABLE picture (
  profile INTEGER PRIMARY KEY, antenna INTEGER NOT NULL, service_mode INTEGER NOT NULL, service INTEGER,
  source INTEGER NOT NULL DEFAULT 0, active INTEGER NOT NULL DEFAULT 1, transponder INTEGER,
  tuned_at INTEGER NOT NULL DEFAULT 0, lock_time INTEGER NOT NULL DEFAULT 0, fine_tune INTEGER
);
CREATE TABLE shown (
  profile INTEGER NOT NULL, antenna INTEGER NOT NULL, service_mode INTEGER NOT NULL, service INTEGER NOT NULL,
  PRIMARY KEY (profile, antenna, service_mode)
) WITHOUT ROWID;
CREATE TABLE fine_tune (service INTEGER PRIMARY KEY, offset INTEGER NOT NULL);
-- the external inputs; rate is in hundredths of hertz, format the service's code
CREATE TABLE input (
  source INTEGER PRIMARY KEY, name TEXT NOT NULL DEFAULT '', width INTEGER NOT NULL DEFAULT 0,
  height INTEGER NOT NULL DEFAULT 0, rate INTEGER NOT NULL DEFAULT 0, progressive INTEGER NOT NULL DEFAULT 1,
  format INTEGER NOT NULL DEFAULT 2
);
CREATE TABLE weak_signal (seq INTEGER PRIMARY KEY, entry TEXT NOT NULL);
CREATE TABLE recorder (service INTEGER PRIMARY KEY, recording INTEGER NOT NULL, timeshifting INTEGER NOT NULL);
CREATE TABLE model_value (number INTEGER PRIMARY KEY, value INTEGER NOT NULL);
-- country -1 is every country
CREATE TABLE broadcaster (
  country INTEGER NOT NULL, number INTEGER NOT NULL, PRIMARY KEY (country, number)
) WITHOUT ROWID;
CREATE TABLE operator_profile (
  slot INTEGER PRIMARY KEY, name TEXT NOT NULL, antenna INTEGER NOT NULL, service_mode INTEGER NOT NULL
);
-- single cable: its user bands in MHz, and who else is on them; what the tuners have stored (255 and 0: nothing), the
-- command that each got last, when it came and how many milliseconds its run takes
CREATE TABLE satcr_band (
  number INTEGER PRIMARY KEY, frequency INTEGER NOT NULL UNIQUE, occupant TEXT NOT NULL DEFAULT ''
);
CREATE TABLE satcr (
  tuner INTEGER PRIMARY KEY, slot INTEGER NOT NULL DEFAULT 255, frequency INTEGER NOT NULL DEFAULT 0,
  command INTEGER NOT NULL DEFAULT 2, began INTEGER NOT NULL DEFAULT 0, lasts INTEGER NOT NULL DEFAULT 0
);
-- the dish. Angles of its motor in hundredths of a degree, east is above 0; zero is the orbital position at 0. It turns
-- from origin to target since began, at speed in a second.
CREATE TABLE dish (
  id INTEGER PRIMARY KEY DEFAULT 1, motor INTEGER NOT NULL DEFAULT 0, zero INTEGER NOT NULL DEFAULT 0,
  origin INTEGER NOT NULL DEFAULT 0, target INTEGER NOT NULL DEFAULT 0, began INTEGER NOT NULL DEFAULT 0,
  speed INTEGER NOT NULL DEFAULT 200, east_limit INTEGER, west_limit INTEGER, command INTEGER, parameter INTEGER
);
INSERT INTO dish DEFAULT VALUES;
CREATE TABLE dish_slot (slot INTEGER PRIMARY KEY, angle INTEGER NOT NULL);
-- the rating system that a broadcast brings along; a name is the stream's bytes (UTF-16 big-endian), null is none
CREATE TABLE rating_region (region INTEGER PRIMARY KEY, name BLOB);
CREATE TABLE rating_dimension (
  region INTEGER NOT NULL, place INTEGER NOT NULL, name BLOB, PRIMARY KEY (region, place)
) WITHOUT ROWID;
CREATE TABLE rating_value (
  region INTEGER NOT NULL, dimension INTEGER NOT NULL, place INTEGER NOT NULL, name BLOB,
  locked INTEGER NOT NULL DEFAULT 0, PRIMARY KEY (region, dimension, place)
) WITHOUT ROWID;
-- single numbers of the service: broadcaster, category, category_parameter, country_letters, clock_mode,
-- clock_hours (12 or 24), satcr_duration (milliseconds), satcr_outcome (-1 by the cable, 0 none, else MHz), ...
CREATE TABLE tv_state (name TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
)sql";

const char* const kServiceIndexSql = R"sql(
CREATE INDEX IF NOT EXISTS service_order ON service (antenna, service_mode, major, minor, id);
CREATE INDEX IF NOT EXISTS service_frequency ON service (frequency, bandwidth);
-- counts the channels of each satellite without a look at them
CREATE INDEX IF NOT EXISTS service_satellite ON service (satellite, antenna, service_mode);
)sql";

void PowerOn(Store& store, const std::string& bootId) {
  store.Write([&] {
    store.Execute("DELETE FROM setting WHERE key GLOB 'memory/*'");
    store.Execute("INSERT INTO setting SELECT * FROM power_on");
    store.Execute("UPDATE application SET running = 0");
    store.Execute("DELETE FROM program");
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(store.Handle(), "REPLACE INTO meta VALUES ('boot', ?)", -1, &statement, nullptr);
    sqlite3_bind_text(statement, 1, bootId.data(), static_cast<int>(bootId.size()), SQLITE_STATIC);
    const int code = sqlite3_step(statement);
    sqlite3_finalize(statement);
    if (code != SQLITE_DONE) store.Fail(code);
  });
}

}  // namespace desktop
