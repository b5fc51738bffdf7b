// The rating system that a broadcast brings along (region 5): what it is made of, and the locks of its values.
#pragma once

#include <string>

/// A rating system as it was when it was read. Texts are UTF-8 in buffers of 512 bytes; `FillRatingInfo` allocates them
/// and everything else in here, `EmptyRatingInfo` frees it.
struct drrt_rating_info {
  char* regionName;
  /// `dimensionCount` entries; null for a dimension that could not be read or has no values.
  char** dimensionNames;
  int* ratingCounts;
  /// For each dimension as many as it has values, null for one that could not be read; null without any.
  char*** ratingNames;
  /// 0 or less: none, and the arrays are null.
  int dimensionCount;
};

/// Dimensions and values are counted from 0. Every call asks the TV anew and keeps nothing, so that any thread may
/// call.
class RatingUtils {
 public:
  /// Above 0, or -1 when the lock cannot be written, as for a value that the system does not have.
  static int SetRRSLock(int dimension, int value, bool lock);
  /// The same; `*locked` is only written on success.
  static int GetRRSLock(int dimension, int value, bool* locked);

  /// Leaves `*out` untouched when nothing can be read, as without a rating system on air.
  static void FillRatingInfo(drrt_rating_info** out);
  /// JSON with "RegionName" and "Count", and where there are dimensions "Names", "RatingCounts" and "RatingNames", an
  /// entry for each. What has no name is written as an empty text.
  static std::string SerializeRatingInfo(const drrt_rating_info& info);
  /// The caller frees it with `free`; null when nothing can be read.
  static char* GetRatingInfoAsJsonString();
  /// Null is allowed, also in the record.
  static void EmptyRatingInfo(drrt_rating_info* info);

  /// Writes `inSize` bytes of UTF-16 big-endian as UTF-8 to a buffer of `outSize` bytes and fills its rest with zeroes,
  /// of which there is at least one. What does not fit is cut after a whole character; conversion ends before the first
  /// character that is broken.
  static void Ucs2Utf8(char* out, unsigned int outSize, char* in, unsigned int inSize);
};
