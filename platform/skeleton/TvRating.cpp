// The rating system that a broadcast brings along. Above 0 is success; on failure the outputs stay as they are.
#include "Proxies.h"

namespace {

class RatingSystem : public IRatingSystem {
 public:
  /// The system as it is now; a broadcast without one is failure.
  int GetRegionRating(TCRegionRating& rating) override { return 0; }

  /// The locks, which the set keeps for as long as the system stays the same.
  int GetRRSLock(int dimension, int value, bool& locked) override { return 0; }

  int SetRRSLock(int dimension, int value, bool locked) override { return 0; }
};

}  // namespace

IRatingSystem* CTVSApiWrapper::CreateRatingSystem(ERRTRegion region) { return Keep<RatingSystem>(m_proxies); }

// Names as they are on air, at most the `length` bytes that `buffer` takes; `length` comes out as what was written.

int TCRegionRating::GetRatingRegionName(char* buffer, unsigned int& length) const { return 0; }

int TCRRSDimension::GetDimensionName(char* buffer, unsigned int& length) const { return 0; }

int TCRRSRatingValue::GetAbbrevRatingValueName(char* buffer, unsigned int& length) const { return 0; }

/// 0 or less when there is none.
int TCRegionRating::DimensionCount() const { return 0; }

/// Null for what cannot be read or is not there; belongs to this, also below.
const TCRRSDimension* TCRegionRating::RRSDimension(int index) const { return nullptr; }

unsigned char TCRRSDimension::RatingValueCount() const { return 0; }

const TCRRSRatingValue* TCRRSDimension::RRSRatingValue(int index) const { return nullptr; }
