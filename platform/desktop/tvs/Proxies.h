// The desktop's proxies of the TV service.
#pragma once

#include <memory>

#include "tvs_api.h"

namespace desktop {

std::unique_ptr<ITVSProxy> MakeServiceNavigation(EProfile profile);
std::unique_ptr<ITVSProxy> MakeSourceControl(EProfile profile);
std::unique_ptr<ITVSProxy> MakeTunerControl(EProfile profile);
std::unique_ptr<ITVSProxy> MakeAVControl(EProfile profile);
std::unique_ptr<ITVSProxy> MakeSOSpecApp();
std::unique_ptr<ITVSProxy> MakeChannelData(EProfile profile);
std::unique_ptr<ITVSProxy> MakeService();
std::unique_ptr<ITVSProxy> MakeSOSpecControl();
std::unique_ptr<ITVSProxy> MakeSatellite();
std::unique_ptr<ITVSProxy> MakeSatelliteSettings();
std::unique_ptr<ITVSProxy> MakeSatelliteControl();
std::unique_ptr<ITVSProxy> MakeRatingUtil();
std::unique_ptr<ITVSProxy> MakeRatingSystem(ERRTRegion region);
std::unique_ptr<ITVSProxy> MakeUtil();

}  // namespace desktop
