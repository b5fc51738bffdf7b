// The TV side of a profile: what the set is set to, what is on air, and which channels it has.
#pragma once

#include <string>
#include <vector>

#include "Profile.h"
#include "ScanTables.h"

namespace desktop {

/// One channel list to make: a share of all services.
struct ListPlan {
  int antenna = 0, serviceMode = -1;
  int share = 0;                                   ///< percent
  int analog = 0, radio = 0, uhd = 0, locked = 0;  ///< percent of the list
  int virtualChannels = 0;
  bool subchannels = false;  ///< major-minor numbers: one major for each physical channel
  int position = -1;         ///< only the satellites here, tenths of a degree
};

/// Reads a profile's sections [tv], [reception] and [channels] into the open TV.
///
///   [tv]                        picture main|pip ANTENNA SERVICE-MODE SOURCE
///                               model NUMBER VALUE            state NAME VALUE
///                               broadcaster NUMBER [COUNTRY]  letters DEU
///                               operator-profile SLOT ANTENNA SERVICE-MODE NAME
///                               weak-signal ENTRY             hdmi PORT RESOLUTION FORMAT NAME
///                               select POSITION ...           user-satellite NUMBER POSITION
///                               satcr bands usual|MHZ ...     satcr occupant MHZ NAME
///                               satcr tuner NUMBER [MHZ]      dish motor ZERO POSITION SPEED
///                               dish satellites POSITION ...
///   [reception]                 satellites all|POSITION ...   air|cable TABLE ...
///                               package ID POSITION
///   [channels]                  services COUNT
///                               list ANTENNA SERVICE-MODE SHARE [analog=N] [radio=N] [uhd=N] [locked=N]
///                                    [virtual=N] [at=POSITION] [subchannels]
///
/// ANTENNA is air, cable or satellite; POSITION is like 19.2E; TABLE is a file of the scan tables. The dish turns with
/// SPEED degrees a second, its motor's zero is at ZERO. Without MHZ a tuner has nothing stored.
class TvProfile : public SectionReader {
 public:
  bool Takes(const std::string& section) const override;
  void Read(const ProfileSection& section) override;
  std::vector<std::string> Make(const TvOptions& options) override;

 private:
  void ReadReception(const ProfileLine& line);
  void ReadChannels(const ProfileLine& line);

  struct Package {
    int id, position;
  };
  std::vector<ProfileLine> m_tv;
  bool m_allSatellites = false;
  std::vector<int> m_positions;
  std::vector<std::string> m_air, m_cable;
  std::vector<Package> m_packages;
  std::vector<ListPlan> m_lists;
  int64_t m_services = 0;
};

/// Writes a line of [tv] into the open TV. Throws ProfileError.
void WriteTvLine(const ProfileLine& line);
/// What stands behind the first word of such a line; also throw ProfileError.
void WriteSelection(const ProfileLine& line, std::string rest);
void WriteUserSatellite(const ProfileLine& line, std::string rest);
void WriteCable(const ProfileLine& line, std::string rest);
void WriteDish(const ProfileLine& line, std::string rest);

/// A number within its bounds, an orbital position in tenths of a degree; throw ProfileError.
int64_t Number(const ProfileLine& line, const std::string& word, int64_t least, int64_t most);
int PositionOf(const ProfileLine& line, const std::string& word);

/// Most services of a TV.
constexpr int64_t kMostServices = 10'000'000;

/// Adds `count` services by the plans, the same ones every time, and the indexes of the channel list.
void MakeServices(const std::vector<ListPlan>& plans, int64_t count);

}  // namespace desktop
