// What channels are called, and how the user has grouped them.
#include "Gate.h"
#include "Proxies.h"
#include "State.h"

namespace desktop {

namespace {

class ChannelData : public IChannelData {
 public:
  explicit ChannelData(EProfile profile) : m_profile(profile) {}

  int GetDigitalChannelNumber(int& number) override {
    return Gate::Pass<int>(op::ChannelData_GetDigitalChannelNumber, Entry(m_profile), [&](Entry& entry) {
      Query q("SELECT s.number FROM picture p JOIN service s ON s.id = p.service WHERE p.profile = ?", m_profile);
      if (!q.Row() || q.IsNull(0)) return -1;
      number = static_cast<int>(q.Int(0));
      entry.Out(number);
      return 0;
    });
  }

  int GetDigitalChannels(std::vector<std::pair<int, std::string>>& channels) override {
    return Gate::Pass<int>(op::ChannelData_GetDigitalChannels, Entry(m_profile), [&](Entry& entry) {
      std::vector<std::pair<int, std::string>> found;
      Query q(
          "SELECT number, label FROM transponder WHERE antenna = (SELECT antenna FROM picture WHERE profile = ?) "
          "AND label NOT NULL ORDER BY number",
          m_profile);
      while (q.Row()) found.emplace_back(q.Int(0), q.Text(1));
      channels = std::move(found);
      entry.Out(channels.size());
      return 0;
    });
  }

 private:
  EProfile m_profile;
};

class CategoryUtil : public CCCategoryUtil {
 public:
  int GetCurrentCategory(const TSTvMode& mode, CCNavigationModeInfo& category) override {
    return Gate::Pass<int>(op::CategoryUtil_GetCurrentCategory, Entry(mode.antennaMode, mode.serviceMode),
                           [&](Entry& entry) {
                             category.eMode = static_cast<int>(TvState("category", 0));
                             category.para = static_cast<unsigned long long>(TvState("category_parameter", 0));
                             entry.Out(category.eMode);
                             entry.Out(category.para);
                             return 1;
                           });
  }
};

class BinderManager : public TCBinderManager {
 public:
  int GetValue(int kind, unsigned int& value) override {
    return Gate::Pass<int>(op::BinderManager_GetValue, Entry(kind), [&](Entry& entry) {
      constexpr int kCountryLetters = 1;
      if (kind != kCountryLetters) return 0;
      value = static_cast<unsigned int>(TvState("country_letters", 0));
      entry.Out(value);
      return 1;
    });
  }
};

constexpr unsigned short kNoNumber = 65535;

}  // namespace

std::unique_ptr<ITVSProxy> MakeChannelData(EProfile profile) { return std::make_unique<ChannelData>(profile); }

}  // namespace desktop

using namespace desktop;

CCCategoryUtil* CCCategoryUtil::GetInstance() {
  return Gate::Pass<CCCategoryUtil*>(op::CategoryUtil_GetInstance, Entry(), [](Entry&) -> CCCategoryUtil* {
    static CategoryUtil instance;
    return &instance;
  });
}

TCBinderManager* TCBinderManager::Instance() {
  return Gate::Pass<TCBinderManager*>(op::BinderManager_Instance, Entry(), [](Entry&) -> TCBinderManager* {
    static BinderManager instance;
    return &instance;
  });
}

std::string CCChInfoUtil::GetChannelTypeString(const TSTvMode&, EChannelType type) {
  if (type == CHANNEL_ANALOG_AIR || type == CHANNEL_ANALOG_CABLE) return "ATV";
  return type == CHANNEL_NONE || type == CHANNEL_VIRTUAL ? "" : "DTV";
}

std::string CCChInfoUtil::GetChannelNumberString(const TSTvMode&, int, unsigned short major, unsigned short minor) {
  if (major == kNoNumber) return "0";
  return minor == kNoNumber ? std::to_string(major) : std::to_string(major) + "-" + std::to_string(minor);
}
