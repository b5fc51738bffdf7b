#include "Gate.h"
#include "Proxies.h"

using namespace desktop;

namespace {

using Proxies = std::vector<std::unique_ptr<ITVSProxy>>;

/// Makes a proxy through the gate and leaves it with the wrapper.
template <class Proxy, class Make, class... Arguments>
Proxy* Create(Proxies& proxies, const Operation& operation, Make make, Arguments... arguments) {
  auto proxy = Gate::Pass<std::unique_ptr<ITVSProxy>>(operation, Entry(arguments...), [&](Entry&) { return make(); });
  if (!proxy) return nullptr;
  proxies.push_back(std::move(proxy));
  return static_cast<Proxy*>(proxies.back().get());
}

}  // namespace

IServiceNavigation* CTVSApiWrapper::CreateServiceNavigation(EProfile profile, int option) {
  return Create<IServiceNavigation>(
      m_proxies, op::CreateServiceNavigation, [&] { return MakeServiceNavigation(profile); }, profile, option);
}

ISourceControl* CTVSApiWrapper::CreateSourceControl(EProfile profile, int option) {
  return Create<ISourceControl>(
      m_proxies, op::CreateSourceControl, [&] { return MakeSourceControl(profile); }, profile, option);
}

ITunerControl* CTVSApiWrapper::CreateTunerControl(EProfile profile, int option) {
  return Create<ITunerControl>(
      m_proxies, op::CreateTunerControl, [&] { return MakeTunerControl(profile); }, profile, option);
}

IAVControl* CTVSApiWrapper::CreateAVControl(EProfile profile, int option) {
  return Create<IAVControl>(
      m_proxies, op::CreateAVControl, [&] { return MakeAVControl(profile); }, profile, option);
}

ISOSpecApp* CTVSApiWrapper::CreateSOSpecApp(EProfile profile, int option) {
  return Create<ISOSpecApp>(m_proxies, op::CreateSOSpecApp, MakeSOSpecApp, profile, option);
}

IChannelData* CTVSApiWrapper::CreateChannelData(EProfile profile, int option) {
  return Create<IChannelData>(
      m_proxies, op::CreateChannelData, [&] { return MakeChannelData(profile); }, profile, option);
}

IService* CTVSApiWrapper::CreateService() { return Create<IService>(m_proxies, op::CreateService, MakeService); }

ISOSpecControl* CTVSApiWrapper::CreateSOSpecControl() {
  return Create<ISOSpecControl>(m_proxies, op::CreateSOSpecControl, MakeSOSpecControl);
}

ISatellite* CTVSApiWrapper::CreateSatellite() {
  return Create<ISatellite>(m_proxies, op::CreateSatellite, MakeSatellite);
}

ISatelliteSettings* CTVSApiWrapper::CreateSatelliteSettings() {
  return Create<ISatelliteSettings>(m_proxies, op::CreateSatelliteSettings, MakeSatelliteSettings);
}

ISatelliteControl* CTVSApiWrapper::CreateSatelliteControl() {
  return Create<ISatelliteControl>(m_proxies, op::CreateSatelliteControl, MakeSatelliteControl);
}

IRatingUtil* CTVSApiWrapper::CreateRatingUtil() {
  return Create<IRatingUtil>(m_proxies, op::CreateRatingUtil, MakeRatingUtil);
}

IRatingSystem* CTVSApiWrapper::CreateRatingSystem(ERRTRegion region) {
  return Create<IRatingSystem>(
      m_proxies, op::CreateRatingSystem, [&] { return MakeRatingSystem(region); }, region);
}

IUtil* CTVSApiWrapper::CreateUtil() { return Create<IUtil>(m_proxies, op::CreateUtil, MakeUtil); }
