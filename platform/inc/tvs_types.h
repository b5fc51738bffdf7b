// Values and records of the TV service.
#pragma once

#include <string>
#include <vector>

/// Base of the records that the service hands over.
class TCMarshalable {
 public:
  virtual ~TCMarshalable() = default;
};

/// A picture on screen.
enum EProfile : int { PROFILE_MAIN = 1, PROFILE_PIP = 101 };

enum EAntennaMode : int { ANTENNA_NONE = -1, ANTENNA_AIR = 0, ANTENNA_CABLE = 1, ANTENNA_SATELLITE = 2 };

/// Operator package within an antenna mode; -1 is not set.
enum EServiceMode : int { SERVICE_MODE_NONE = -1, SERVICE_MODE_SATELLITE = 1 };

/// Which part of a TV mode's channel list is walked.
enum ENavigationMode : int {
  NAVIGATION_ALL = 0,
  NAVIGATION_DIGITAL = 1,
  NAVIGATION_ANALOG = 2,
  NAVIGATION_FAVOURITE = 3,  ///< parameter: the list, 1 to 5
  NAVIGATION_SATELLITE = 4,  ///< parameter: the satellite ID
  NAVIGATION_TV = 6,
  NAVIGATION_RADIO = 7
};

enum EChannelType : int {
  CHANNEL_NONE = 0,
  CHANNEL_ANALOG_AIR = 1,
  CHANNEL_DIGITAL_AIR = 2,
  CHANNEL_ANALOG_CABLE = 3,
  CHANNEL_DIGITAL_CABLE = 4,
  CHANNEL_DIGITAL_SATELLITE = 7,
  CHANNEL_VIRTUAL = 9
};

/// 0 is the TV tuner; every other value is an external input.
enum ESource : int {
  SOURCE_TYPE_TV = 0,
  SOURCE_TYPE_HDMI1 = 13,
  SOURCE_TYPE_HDMI2 = 14,
  SOURCE_TYPE_HDMI3 = 15,
  SOURCE_TYPE_HDMI4 = 16,
  SOURCE_TYPE_HDMI5 = 38,
  SOURCE_TYPE_HDMI6 = 39,
  SOURCE_TYPE_HDMI7 = 46,
  SOURCE_TYPE_HDMI8 = 47
};

/// What the tuner receives; 4 and 5 are the satellite kinds.
enum ESignalKind : int {
  SIGNAL_NONE = 0,
  SIGNAL_ANALOG = 1,
  SIGNAL_DIGITAL_AIR = 2,
  SIGNAL_DIGITAL_CABLE = 3,
  SIGNAL_SATELLITE = 4,
  SIGNAL_SATELLITE2 = 5
};

/// 5, 6, 7, 8, 10 and 7/12 MHz; -1 is unknown.
enum EBandwidth : int {
  BANDWIDTH_UNKNOWN = -1,
  BANDWIDTH_5 = 0,
  BANDWIDTH_6 = 1,
  BANDWIDTH_7 = 2,
  BANDWIDTH_8 = 3,
  BANDWIDTH_10 = 4,
  BANDWIDTH_712 = 5
};

enum EServiceProfile : int { SERVICE_TV = 1, SERVICE_RADIO = 2, SERVICE_DATA = 3 };

enum EBroadCaster : int {};
enum EPackageId : int {};

/// 1 and up from the scan; 65505 to 65508 are the user's own; -1 is none.
enum ESatelliteId : int { SATELLITE_NONE = -1, SATELLITE_USER_FIRST = 65505, SATELLITE_USER_LAST = 65508 };

enum EDVBSPolarisation : int {
  POLARISATION_NONE = -1,
  POLARISATION_HORIZONTAL = 0,
  POLARISATION_VERTICAL = 1,
  POLARISATION_LEFT = 2,
  POLARISATION_RIGHT = 3
};

/// Inner code rate; -1 is not known, 0 is found by the tuner.
enum EDVBFECInner : int {
  INNER_FEC_NONE = -1,
  INNER_FEC_AUTO = 0,
  INNER_FEC_1_2,
  INNER_FEC_2_3,
  INNER_FEC_3_4,
  INNER_FEC_3_5,
  INNER_FEC_4_5,
  INNER_FEC_5_6,
  INNER_FEC_6_7,
  INNER_FEC_7_8,
  INNER_FEC_8_9,
  INNER_FEC_9_10,
  INNER_FEC_2_5
};

/// Commands of a single-cable run.
enum ESatCRCommand : int { SATCR_COMMAND_DETECT = 0, SATCR_COMMAND_VERIFY = 1, SATCR_COMMAND_STOP = 2 };

/// Commands of a dish motor; each goes with one parameter.
enum EPositionerCommand : int {
  POSITIONER_RESET_LIMIT = 1,
  POSITIONER_LIMIT_EAST = 2,
  POSITIONER_LIMIT_WEST = 3,
  POSITIONER_STORE = 6,  ///< parameter: the slot
  POSITIONER_GO_TO_ZERO = 7
};

/// What a picture receives.
class TSTvMode : public TCMarshalable {
 public:
  TSTvMode() = default;
  TSTvMode(EAntennaMode antenna, EServiceMode service) : antennaMode(antenna), serviceMode(service) {}

  EAntennaMode antennaMode = ANTENNA_NONE;
  EServiceMode serviceMode = SERVICE_MODE_NONE;
};

/// What comes in at an input; without a picture the sizes are 0.
class TSResolution : public TCMarshalable {
 public:
  int horizontal = 0;
  int vertical = 0;
  int frameRate = 0;  ///< hundredths of hertz
  bool progressive = true;
};

/// One satellite. Positions count eastwards in tenths of a degree from 0 to 3599.
class TSSatellite : public TCMarshalable {
 public:
  ESatelliteId satelliteId = SATELLITE_NONE;
  std::u16string name;
  int position = 0;
};

/// One transponder: frequency in kHz, symbol rate in kBd (65535 is not known).
class TSTransponder : public TCMarshalable {
 public:
  TSTransponder(unsigned short id, ESatelliteId satellite, int kHz, unsigned short kBd, EDVBSPolarisation polarisation,
                EDVBFECInner fec)
      : transponderId(id),
        satelliteId(satellite),
        frequency(kHz),
        symbolRate(kBd),
        polarisation(polarisation),
        fec(fec) {}

  unsigned short transponderId;
  ESatelliteId satelliteId;
  int frequency;
  unsigned short symbolRate;
  EDVBSPolarisation polarisation;
  EDVBFECInner fec;
};

/// How the dish and its LNB reach one satellite. Frequencies in kHz.
class TSSatelliteSettings : public TCMarshalable {
 public:
  int lnbPower = 1;
  int slotId = 1;  ///< position slot of the dish motor
  int diseqcMode = 0;
  int lowFrequency = 9750000;
  int highFrequency = 10600000;
  int switchFrequency = 11300000;
  int voltage = 18;
  int tone = 2;
  int userBand = 0;
  int enabled = 1;  ///< 0 for a satellite that the user has switched off
};

/// Single-cable slot of one tuner; frequency in MHz, 0 when nothing is stored.
class TSSatCRSettings : public TCMarshalable {
 public:
  unsigned char slotNumber = 255;
  int slotFrequency = -1;
};
