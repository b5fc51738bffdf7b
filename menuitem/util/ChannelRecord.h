// The program's record of one channel.
#pragma once

#include "tvs_types.h"

/// What the service knows of a channel; the defaults stand for what it does not know.
struct tvs_ch_info {
  int channelType = 0;  ///< below 13
  unsigned char digital = 0;
  unsigned char analog = 0;
  unsigned char virtualChannel = 0;
  unsigned char lockedModeOff = 0;
  unsigned char isDefault = 0;
  unsigned long long serviceId = ~0ULL;
  unsigned short antennaMode = 65535;
  int serviceMode = -1;
  unsigned short channelNumber = 65535;  ///< of a satellite channel: its transponder's ID
  unsigned short major = 65535;
  unsigned short minor = 65535;
  int serviceProfile = -1;
  int satelliteId = -1;
  int modulation = -1;
  int frequency = -1;  ///< kHz
  int bandwidth = -1;  ///< EBandwidth
  unsigned short symbolRate = 65535;
  unsigned short programNumber = 65535;
  unsigned short transportStreamId = 65535;
  unsigned short originalNetworkId = 65535;
  unsigned short networkId = 65535;
};
