// The rating system that is on air, and its locks.
#include <algorithm>

#include "Gate.h"
#include "Proxies.h"
#include "RatingTable.h"

using namespace desktop;

namespace {

int CopyName(const Operation& operation, const RatingName& name, char* buffer, unsigned int& length) {
  return Gate::Pass<int>(operation, Entry(length), [&](Entry& entry) {
    if (!name) return 0;
    length = std::min(length, static_cast<unsigned int>(name->size()));
    std::copy_n(name->begin(), length, buffer);
    entry.Out(length);
    return 1;
  });
}

/// Null outside the list.
template <class Rating>
const Rating* At(const Operation& operation, const std::vector<Rating>& ratings, int index) {
  return Gate::Pass<const Rating*>(operation, Entry(index), [&](Entry&) -> const Rating* {
    return index >= 0 && index < static_cast<int>(ratings.size()) ? &ratings[static_cast<size_t>(index)] : nullptr;
  });
}

TCRegionRating RatingOf(const RatingSystem& system) {
  std::vector<TCRRSDimension> dimensions;
  for (const RatingDimension& dimension : system.dimensions) {
    std::vector<TCRRSRatingValue> values;
    for (const RatingValue& value : dimension.values) values.emplace_back(value.name);
    dimensions.emplace_back(dimension.name, std::move(values));
  }
  return {system.name, std::move(dimensions)};
}

class RatingSystemProxy : public IRatingSystem {
 public:
  explicit RatingSystemProxy(ERRTRegion region) : m_region(region) {}

  int GetRegionRating(TCRegionRating& rating) override {
    return Gate::Pass<int>(op::RatingSystem_GetRegionRating, Entry(m_region), [&](Entry&) {
      const auto system = ReadRatingSystem(m_region);
      if (system) rating = RatingOf(*system);
      return system ? 1 : 0;
    });
  }

  int GetRRSLock(int dimension, int value, bool& locked) override {
    return Gate::Pass<int>(op::RatingSystem_GetRRSLock, Entry(dimension, value), [&](Entry& entry) {
      const auto lock = RatingLock(m_region, dimension, value);
      if (!lock) return -1;
      locked = *lock;
      entry.Out(locked);
      return 1;
    });
  }

  int SetRRSLock(int dimension, int value, bool locked) override {
    return Gate::Pass<int>(op::RatingSystem_SetRRSLock, Entry(dimension, value, locked),
                           [&](Entry&) { return SetRatingLock(m_region, dimension, value, locked) ? 1 : -1; });
  }

 private:
  ERRTRegion m_region;
};

}  // namespace

int TCRRSRatingValue::GetAbbrevRatingValueName(char* buffer, unsigned int& length) const {
  return CopyName(op::RRSRatingValue_GetAbbrevRatingValueName, m_name, buffer, length);
}

int TCRRSDimension::GetDimensionName(char* buffer, unsigned int& length) const {
  return CopyName(op::RRSDimension_GetDimensionName, m_name, buffer, length);
}

unsigned char TCRRSDimension::RatingValueCount() const {
  return Gate::Pass<unsigned char>(op::RRSDimension_RatingValueCount, Entry(),
                                   [&](Entry&) { return static_cast<unsigned char>(m_values.size()); });
}

const TCRRSRatingValue* TCRRSDimension::RRSRatingValue(int index) const {
  return At(op::RRSDimension_RRSRatingValue, m_values, index);
}

int TCRegionRating::GetRatingRegionName(char* buffer, unsigned int& length) const {
  return CopyName(op::RegionRating_GetRatingRegionName, m_name, buffer, length);
}

int TCRegionRating::DimensionCount() const {
  return Gate::Pass<int>(op::RegionRating_DimensionCount, Entry(),
                         [&](Entry&) { return static_cast<int>(m_dimensions.size()); });
}

const TCRRSDimension* TCRegionRating::RRSDimension(int index) const {
  return At(op::RegionRating_RRSDimension, m_dimensions, index);
}

namespace desktop {

std::unique_ptr<ITVSProxy> MakeRatingSystem(ERRTRegion region) { return std::make_unique<RatingSystemProxy>(region); }

}  // namespace desktop
