// The HDMI ports of a set, and what is connected to them.
#pragma once

#include <string>

#include "tvs_types.h"

struct HdmiPort {
  ESource source;
  /// String ID of its name.
  const char* label;
};

/// In port order, from port 1.
inline constexpr HdmiPort kHdmiPorts[] = {
    {SOURCE_TYPE_HDMI1, "COM_SID_HDMI1"}, {SOURCE_TYPE_HDMI2, "COM_SID_HDMI2"}, {SOURCE_TYPE_HDMI3, "COM_SID_HDMI3"},
    {SOURCE_TYPE_HDMI4, "COM_SID_HDMI4"}, {SOURCE_TYPE_HDMI5, "COM_SID_HDMI5"}, {SOURCE_TYPE_HDMI6, "COM_SID_HDMI6"},
    {SOURCE_TYPE_HDMI7, "COM_SID_HDMI7"}, {SOURCE_TYPE_HDMI8, "COM_SID_HDMI8"},
};

/// Null for a source that is no HDMI input.
const HdmiPort* FindHdmiPort(int source);

/// Whether the input is the one that the set has given away to HDBaseT.
bool IsHdbt(ESource source);
/// The name that the user has given to the device at an input, empty when none was given.
std::string HdmiDeviceName(ESource source);
/// What comes in, like "1920x1080 / 60p"; empty when nothing does, or the source is no HDMI input.
std::string HdmiResolution(ESource source);
