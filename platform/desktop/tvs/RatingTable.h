// The rating systems in the TV's file, and how a profile tells of one.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Profile.h"
#include "tvs_rating.h"

namespace desktop {

/// As many dimensions, and as many values in each, as a stream can tell of.
constexpr int kMostRatings = 255;

/// The bytes of the stream, or none where it gives no name.
using RatingName = std::optional<std::string>;
/// A text (UTF-8) as it would be on air. Surrogates in it stay what they are, so that a name can be broken.
std::string OnAir(std::string_view text);

struct RatingValue {
  RatingName name;
  bool locked = false;
};
struct RatingDimension {
  RatingName name;
  std::vector<RatingValue> values;
};
struct RatingSystem {
  RatingName name;
  std::vector<RatingDimension> dimensions;
};

/// Nothing when nothing on air has a system of this region.
std::optional<RatingSystem> ReadRatingSystem(ERRTRegion region);
/// Puts a system in place of the one that is there.
void WriteRatingSystem(ERRTRegion region, const RatingSystem& system);
void ClearRatingSystem(ERRTRegion region);
/// Nothing, and false, for a value that the system does not have.
std::optional<bool> RatingLock(ERRTRegion region, int dimension, int value);
bool SetRatingLock(ERRTRegion region, int dimension, int value, bool locked);

/// Reads a profile's section [rating]:
///
///   region [NAME]
///   dimension [NAME]    followed by its values
///   value [NAME]
///
/// NAME is the text to the line's end, "" an empty one, x'00410042' its bytes on air; without any there is no name.
class RatingProfile : public SectionReader {
 public:
  bool Takes(const std::string& section) const override { return section == "rating"; }
  void Read(const ProfileSection& section) override;
  std::vector<std::string> Make(const TvOptions& options) override;

 private:
  void ReadLine(const ProfileLine& line);

  std::optional<RatingSystem> m_system;
};

}  // namespace desktop
