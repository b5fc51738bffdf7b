// What the menu asks about the product and the viewing situation. Keeps no state.
#pragma once

#include "ChannelRecord.h"
#include "tvs_api.h"

/// Which service's record is asked for.
enum _tv_service_info : int { TV_SERVICE_INFO_CURRENT = 0 };

class CUtil {
 public:
  /// Results of `GetDTVStandard`.
  enum EDTVStandard : int { DTV_NONE = 0, DTV_ATSC = 1, DTV_DVB = 2, DTV_ISDB = 3 };

  // Country and region; -1 when it cannot be read.
  static int GetCountryId();
  static int GetRegionKind();
  static bool FlagNordicCountry();
  static bool FlagATSC();
  static int GetDTVStandard();
  static bool IsExceptionRegionForDVB();
  /// A short code such as "US" that the caller frees, or null.
  static char* getreginonkind();

  // Product.
  static bool IsProjector();
  static bool IsSmartMonitor();
  static bool is_tunerless();
  static bool IsDtvOnly();
  static bool IsAtvOnly();
  static bool FlagVisibleSatCRTwoTuner();

  // Situation.
  static bool checkplaying();
  static bool flagrecording();
  static bool flagtimeshift();
  static bool is_timeshift_running();
  /// The main source, 0 for the tuner.
  static int check_source_tv();
  static bool flagexternalsource();
  static bool dtv_check();
  /// Fills type, flags and ID of a fresh record; false leaves it untouched.
  static bool tv_service_channel_get_info(tvs_ch_info& record, _tv_service_info info, bool pip);
  static bool get_analog_flag(tvs_ch_info& record);
  static bool get_digital_flag(tvs_ch_info& record);
  static bool get_lockedmodeoff_flag(tvs_ch_info& record);

  /// Takes line feeds and carriage returns out of a zero-terminated text of big-endian 16-bit units.
  static void TransStrExceptLF(unsigned short* text);
  static void FlushCache();
};
