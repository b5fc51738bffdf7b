#include "HdmiPorts.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "Log.h"
#include "source_api.h"
#include "system_info.h"
#include "tvs_api.h"

namespace {

/// Where the ports that can be set aside for HDBaseT begin.
constexpr int kSourceBeforePorts = 12;
constexpr int kOnlyName = -2;
constexpr int kFormatUnknown = 2;

/// Video formats whose rate follows the source: from `first` up to but not including `end`.
struct FormatRange {
  int first, end;
};
constexpr FormatRange kVariableRate[] = {{0x70000, 0x7000a}, {0xa0000, 0xa0002}};

bool IsVariableRate(int format) {
  for (const FormatRange& range : kVariableRate) {
    if (format >= range.first && format < range.end) return true;
  }
  return false;
}

std::string ResolutionText(const TSResolution& resolution, int format) {
  char text[64];
  if (IsVariableRate(format)) {
    snprintf(text, sizeof text, "%dx%d Freesync", resolution.horizontal, resolution.vertical);
    return text;
  }
  const auto hertz = static_cast<unsigned>((resolution.frameRate + 50) / 100);
  snprintf(text, sizeof text, resolution.progressive ? "%dx%d / %up" : "%dx%d / %ui", resolution.horizontal,
           resolution.vertical, hertz);
  return text;
}

}  // namespace

const HdmiPort* FindHdmiPort(int source) {
  const HdmiPort* found = std::find_if(std::begin(kHdmiPorts), std::end(kHdmiPorts),
                                       [&](const HdmiPort& port) { return port.source == source; });
  return found == std::end(kHdmiPorts) ? nullptr : found;
}

bool IsHdbt(ESource source) {
  bool supported = false;
  int port = 0;
  if (system_info_get_custom_bool("com.vantrel/featureconf/hdbt_source_support", &supported) != 0) {
    LOG_ERROR("system info fails");
    return false;
  }
  if (!supported) return false;
  if (system_info_get_custom_int("com.vantrel/featureconf/hdmi_port_for_hdbt", &port) != 0) {
    LOG_ERROR("system info fails");
    return false;
  }
  return source == port + kSourceBeforePorts;
}

std::string HdmiDeviceName(ESource source) {
  std::string name;
  CSourceAPI::Get()->GetSourceEditName(source, name, kOnlyName);
  LOG_INFO("GetSourceEditName : %s", name.c_str());
  return name;
}

std::string HdmiResolution(ESource source) {
  int format = kFormatUnknown;
  TSResolution resolution;
  CTVSApiWrapper api;
  IAVControl* control = api.CreateAVControl(PROFILE_MAIN, 0);
  if (!control || control->GetResolution(format, resolution) != 0 || !FindHdmiPort(source)) {
    LOG_ERROR("Current source isn't HDMI");
    return {};
  }
  LOG_INFO("horizontal : %d, vertical : %d, frequency : %d", resolution.horizontal, resolution.vertical,
           resolution.frameRate);
  if (resolution.horizontal == 0 || resolution.vertical == 0) return {};
  return ResolutionText(resolution, format);
}
