// The external inputs: what is connected, and what comes in.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tvs_types.h"

namespace desktop {

constexpr int kHdmiPorts = 8;
/// Largest code of a video format.
constexpr int64_t kMostFormat = 0xFFFFF;

/// Source of an HDMI port, 1 to 8.
ESource HdmiSource(int64_t port);

/// "1920x1080@59.94p", or "none" for an input on which nothing comes in.
std::optional<TSResolution> ParseResolution(const std::string& text);

/// Change one side of an input, which the TV knows from then on.
void SetInputName(ESource source, const std::string& name);
void SetInputResolution(ESource source, const TSResolution& resolution);
void SetInputFormat(ESource source, int64_t format);

}  // namespace desktop
