// The HDMI ports of a set.
#pragma once

#include <algorithm>
#include <iterator>

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
inline const HdmiPort* FindHdmiPort(int source) {
  const HdmiPort* found = std::find_if(std::begin(kHdmiPorts), std::end(kHdmiPorts),
                                       [&](const HdmiPort& port) { return port.source == source; });
  return found == std::end(kHdmiPorts) ? nullptr : found;
}
