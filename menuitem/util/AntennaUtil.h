// The reception choices of the menu, against the TV modes of the service.
#pragma once

#include <list>

#include "CountryUtil.h"
#include "ca_api.h"
#include "tvs_api.h"

/// Results of 0 / -1 are success / failure.
class CAntennaUtil {
 public:
  /// 0 to 54; the table in AntennaTable.cpp says what each is.
  enum EMenuAntennaType : int {
    MENU_ANTENNA_AIR = 0,
    MENU_ANTENNA_CABLE = 1,
    MENU_ANTENNA_SATELLITE = 3,
    MENU_ANTENNA_CI_OP1 = 20,
    MENU_ANTENNA_CI_OP2 = 21,
    MENU_ANTENNA_TKGS = 36,
    MENU_ANTENNA_UNKNOWN = 46,
    MENU_ANTENNA_IPTV = 52,
    MENU_ANTENNA_MAX = 55
  };
  /// Types that the menu lists, from 0.
  static constexpr int kListed = 46;

  static int GetAntennaMode(EMenuAntennaType* out, EProfile profile);
  /// Both parts -1 for a type that has no mode.
  static TSTvMode GetTVModeByMenuAntennaType(EMenuAntennaType type);
  /// String ID into at least 512 bytes.
  static void GetAntennaName(EMenuAntennaType type, char* buf);
  static bool GetCurrentAntennaName(char* buf);
  /// Goes back with `CCountryUtil::FreeListItems`.
  static _item** GetAntennaList(int* count);
  static int SetAntennaMode(EMenuAntennaType type, EProfile profile);
  static int SetPIPAntennaMode(EMenuAntennaType type, EProfile profile);
  /// Moves the sub picture to an antenna that has channels.
  static int SetAvailableAntennaModeForPIP();

  static bool FlagSupportAntennaMode(EMenuAntennaType type);
  static bool FlagSupportTunerType(system_info_tuner_kind_e kind);
  /// `country` -1 is the country of the initial setup.
  static bool FlagSupportBroadcaster(EBroadCaster broadcaster, int country);
  static bool CheckCurrentBroadcaster(EBroadCaster broadcaster);
  static bool FlagEnableSatelliteSelection();
  static bool FlagEnableSatelliteSystem();
  static bool IsCurrentTVModeSatellite();
  /// Whether the satellites are an operator's choice.
  static bool FlagSpecificSatelliteMode();
  static bool IsCurrentOperatorTKGS();
  static int GetSatellitePackageId();

  static int GetNumberOfCI();
  static int GetInstalledOperatorProfiles(std::list<CA_API::COperatorProfileData>& profiles);
  /// `op` is 1 or 2; `name` takes 512 bytes.
  static int GetCIOPInfo(int op, TSTvMode& mode, char* name);
  static bool FlagInstalledCIOP(int op, EAntennaMode* antenna);

  static bool FlagExistChannel(EMenuAntennaType type, EProfile profile);
  static bool FlagExistDigitalChannel(EMenuAntennaType type, EProfile profile);
};
