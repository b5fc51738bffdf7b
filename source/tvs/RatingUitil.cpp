#include "RatingUitil.h"

#include <iconv.h>
#include <json/json.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "Log.h"
#include "tvs_api.h"

namespace {

constexpr unsigned int kTextSize = 512;
constexpr const char* kRegionWithoutName = "COM_SID_DOWNLOADABLE_US_RATING";

template <class Entry>
Entry* NewArray(size_t count) {
  return static_cast<Entry*>(calloc(count, sizeof(Entry)));
}

// --- texts of a record ---------------------------------------------------------------------------

/// A name as the stream has it; the bytes behind it stay zero.
struct StreamName {
  char bytes[kTextSize] = "";
  unsigned int length = kTextSize - 1;
};

char* NewText(StreamName& name) {
  char* text = NewArray<char>(kTextSize);
  RatingUtils::Ucs2Utf8(text, kTextSize, name.bytes, name.length);
  return text;
}

template <class... Values>
char* NewText(const char* format, Values... values) {
  char* text = NewArray<char>(kTextSize);
  snprintf(text, kTextSize, format, values...);
  return text;
}

char* NewRegionName(const TCRegionRating& rating) {
  StreamName name;
  const int state = rating.GetRatingRegionName(name.bytes, name.length);
  LOG_DEBUG("state[%d] name[%s]", state, name.bytes);
  if (state <= 0) {
    LOG_DEBUG("Get Rating Region Name failed");
    return NewText("%s", kRegionWithoutName);
  }
  char* text = NewText(name);
  LOG_INFO("RRT region name:%s", text);
  return text;
}

char* NewDimensionName(const TCRRSDimension& dimension, int index) {
  StreamName name;
  if (dimension.GetDimensionName(name.bytes, name.length) > 0) return NewText(name);
  LOG_DEBUG(" Failed to read dimension name");
  return NewText("Dimension %d", index);
}

/// Null when the value cannot be read.
char* NewValueName(const TCRRSDimension& dimension, int index) {
  const TCRRSRatingValue* value = dimension.RRSRatingValue(index);
  if (!value) {
    LOG_DEBUG("Failed to get RRS rating value");
    return nullptr;
  }
  StreamName name;
  if (value->GetAbbrevRatingValueName(name.bytes, name.length) > 0) return NewText(name);
  LOG_DEBUG("Failed to read rating value name");
  return NewText("Rating %d", index);
}

// --- a record ------------------------------------------------------------------------------------

void FillDimension(const TCRegionRating& rating, int index, drrt_rating_info& info) {
  const TCRRSDimension* dimension = rating.RRSDimension(index);
  if (!dimension) {
    LOG_DEBUG("Failed to read dimension");
    return;
  }
  const unsigned int count = dimension->RatingValueCount();
  info.ratingCounts[index] = static_cast<int>(count);
  LOG_INFO(" dimesion %d rating count %u ", index, count);
  if (count < 1) {
    LOG_DEBUG("No ratings present for dimension %d", index);
    return;
  }
  info.dimensionNames[index] = NewDimensionName(*dimension, index);
  info.ratingNames[index] = NewArray<char*>(count);
  for (unsigned int value = 0; value < count; ++value) {
    info.ratingNames[index][value] = NewValueName(*dimension, static_cast<int>(value));
  }
}

void FillDimensions(const TCRegionRating& rating, drrt_rating_info& info) {
  info.dimensionCount = rating.DimensionCount();
  LOG_INFO("dimension count :%u", static_cast<unsigned int>(info.dimensionCount));
  if (info.dimensionCount <= 0) {
    LOG_DEBUG("No dimensions present in drrt");
    return;
  }
  const auto count = static_cast<size_t>(info.dimensionCount);
  info.dimensionNames = NewArray<char*>(count);
  info.ratingCounts = NewArray<int>(count);
  info.ratingNames = NewArray<char**>(count);
  for (int index = 0; index < info.dimensionCount; ++index) FillDimension(rating, index, info);
}

const char* TextOrEmpty(const char* text) { return text ? text : ""; }

Json::Value ValueNames(const drrt_rating_info& info, int dimension) {
  Json::Value names(Json::arrayValue);
  for (int value = 0; value < info.ratingCounts[dimension]; ++value) {
    names.append(TextOrEmpty(info.ratingNames[dimension][value]));
  }
  return names;
}

/// Frees an array with what its entries point to.
template <class Entry, class Free>
void FreeArray(Entry* entries, int count, Free freeEntry) {
  for (int i = 0; entries && i < count; ++i) freeEntry(entries[i], i);
  free(entries);
}

void FreeText(char* text, int) { free(text); }

}  // namespace

// --- locks ---------------------------------------------------------------------------------------

int RatingUtils::SetRRSLock(int dimension, int value, bool lock) {
  CTVSApiWrapper wrapper;
  IRatingSystem* system = wrapper.CreateRatingSystem(RRT_REGION_DOWNLOADABLE);
  if (!system) {
    LOG_DEBUG("tv service init failed");
    return -1;
  }
  const int result = system->SetRRSLock(dimension, value, lock);
  if (result > 0) {
    LOG_INFO("Set RRS Lock success:%d", result);
    return result;
  }
  LOG_INFO("Set RRS Lock failed:%d", result);
  return -1;
}

int RatingUtils::GetRRSLock(int dimension, int value, bool* locked) {
  CTVSApiWrapper wrapper;
  IRatingSystem* system = wrapper.CreateRatingSystem(RRT_REGION_DOWNLOADABLE);
  if (!system) {
    LOG_DEBUG("tv service init failed ");
    return -1;
  }
  const int result = system->GetRRSLock(dimension, value, *locked);
  if (result > 0) {
    LOG_INFO("Get RRS Lock success:%d", result);
    return result;
  }
  LOG_INFO("Get RRS Lock failed:%d", result);
  return -1;
}

// --- the system ----------------------------------------------------------------------------------

void RatingUtils::FillRatingInfo(drrt_rating_info** out) {
  CTVSApiWrapper wrapper;
  IRatingSystem* system = wrapper.CreateRatingSystem(RRT_REGION_DOWNLOADABLE);
  if (!system) {
    LOG_DEBUG("tv service init failed ");
    return;
  }
  TCRegionRating rating;
  const int result = system->GetRegionRating(rating);
  if (result < 1) {
    LOG_ERROR("Get Region Rating System failed / RRT not available in stream :%d", result);
    return;
  }
  auto* info = NewArray<drrt_rating_info>(1);
  info->regionName = NewRegionName(rating);
  FillDimensions(rating, *info);
  *out = info;
}

std::string RatingUtils::SerializeRatingInfo(const drrt_rating_info& info) {
  Json::Value root;
  root["RegionName"] = TextOrEmpty(info.regionName);
  for (int dimension = 0; dimension < info.dimensionCount; ++dimension) {
    root["Names"].append(TextOrEmpty(info.dimensionNames[dimension]));
    root["RatingCounts"].append(info.ratingCounts[dimension]);
    root["RatingNames"].append(ValueNames(info, dimension));
  }
  root["Count"] = info.dimensionCount;
  std::string json = Json::writeString(Json::StreamWriterBuilder(), root);
  LOG_DEBUG("json size: %zu", json.size());
  LOG_DEBUG("json:%s", json.c_str());
  return json;
}

char* RatingUtils::GetRatingInfoAsJsonString() {
  drrt_rating_info* info = nullptr;
  FillRatingInfo(&info);
  if (!info) {
    LOG_ERROR("Assertion failed");
    return nullptr;
  }
  const std::string json = SerializeRatingInfo(*info);
  EmptyRatingInfo(info);
  return strdup(json.c_str());
}

void RatingUtils::EmptyRatingInfo(drrt_rating_info* info) {
  if (!info) return;
  FreeArray(info->ratingNames, info->dimensionCount, [&](char** names, int dimension) {
    FreeArray(names, info->ratingCounts ? info->ratingCounts[dimension] : 0, FreeText);
  });
  FreeArray(info->dimensionNames, info->dimensionCount, FreeText);
  free(info->ratingCounts);
  free(info->regionName);
  free(info);
}

void RatingUtils::Ucs2Utf8(char* out, unsigned int outSize, char* in, unsigned int inSize) {
  memset(out, 0, outSize);
  iconv_t converter = iconv_open("UTF-8", "UTF-16BE");
  if (reinterpret_cast<intptr_t>(converter) == -1) {
    LOG_ERROR("Iconv open failed");
    return;
  }
  size_t room = outSize ? outSize - 1 : 0, left = inSize;
  if (iconv(converter, &in, &left, &out, &room) == static_cast<size_t>(-1)) LOG_ERROR("iconv failed: %d", errno);
  iconv_close(converter);
}
