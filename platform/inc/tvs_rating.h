// A rating system that a broadcast brings along: a region's dimensions ("Violence"), and the values of each.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tvs_types.h"

/// The regions of the rating tables that a broadcast may carry.
enum ERRTRegion : int { RRT_REGION_DOWNLOADABLE = 5 };

// The calls that give a name copy it as it is on air: UTF-16 big-endian, without an end, cut or broken wherever the
// broadcaster has done so. `length` goes in as the bytes that `buffer` has room for (511 in a zeroed buffer of 512) and
// comes out as those that were written; of a longer name the first `length` bytes are. Above 0 is success, an empty
// name too; anything else says that there is no name, and nothing is written then.

class TCRRSRatingValue : public TCMarshalable {
 public:
  explicit TCRRSRatingValue(std::optional<std::string> name) : m_name(std::move(name)) {}
  int GetAbbrevRatingValueName(char* buffer, unsigned int& length) const;

 private:
  std::optional<std::string> m_name;
};

class TCRRSDimension : public TCMarshalable {
 public:
  explicit TCRRSDimension(std::optional<std::string> name, std::vector<TCRRSRatingValue> values)
      : m_name(std::move(name)), m_values(std::move(values)) {}
  int GetDimensionName(char* buffer, unsigned int& length) const;
  unsigned char RatingValueCount() const;
  /// Null for a value that cannot be read or that there is not. Belongs to this.
  const TCRRSRatingValue* RRSRatingValue(int index) const;

 private:
  std::optional<std::string> m_name;
  std::vector<TCRRSRatingValue> m_values;
};

/// A whole system as it was when it was read.
class TCRegionRating : public TCMarshalable {
 public:
  TCRegionRating() = default;
  TCRegionRating(std::optional<std::string> name, std::vector<TCRRSDimension> dimensions)
      : m_name(std::move(name)), m_dimensions(std::move(dimensions)) {}
  int GetRatingRegionName(char* buffer, unsigned int& length) const;
  /// 0 or less when there is none.
  int DimensionCount() const;
  /// Null for a dimension that cannot be read or that there is not. Belongs to this.
  const TCRRSDimension* RRSDimension(int index) const;

 private:
  std::optional<std::string> m_name;
  std::vector<TCRRSDimension> m_dimensions;
};
