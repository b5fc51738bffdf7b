#include "Harness.h"

#include <map>

using test::Remote;
using test::Tv;

namespace {

const std::string kKeys = "db/menu/broadcasting/program_rating_lock/tv_rating/";

struct Box {
  const char* name;
  const char* key;
  int bit;
};

/// The boxes by their index.
constexpr Box kBoxes[] = {
    {"All, TV-Y", "tv_y", 0x20},  {"All, TV-Y7", "tv_y7", 0x20}, {"All, TV-G", "tv_g", 0x20},
    {"All, TV-PG", "tv_pg", 0x20}, {"All, TV-14", "tv_14", 0x20}, {"All, TV-MA", "tv_ma", 0x20},
    {"FV, TV-Y7", "tv_y7", 0x10}, {"V, TV-PG", "tv_pg", 0x08},   {"V, TV-14", "tv_14", 0x08},
    {"V, TV-MA", "tv_ma", 0x08},  {"S, TV-PG", "tv_pg", 0x04},   {"S, TV-14", "tv_14", 0x04},
    {"S, TV-MA", "tv_ma", 0x04},  {"L, TV-PG", "tv_pg", 0x02},   {"L, TV-14", "tv_14", 0x02},
    {"L, TV-MA", "tv_ma", 0x02},  {"D, TV-PG", "tv_pg", 0x01},   {"D, TV-14", "tv_14", 0x01},
};

TEST(TvRating, OpensWithTheFocusOnTheFirstBox) {
  Tv tv;
  test::Run({"tv-rating"}, [](Remote& remote) {
    const Json::Value screen = remote.Screen();
    EXPECT_EQ(screen["title"].asString(), "TV rating");
    EXPECT_EQ(screen["checks"].size(), std::size(kBoxes));
    EXPECT_EQ(remote.Focus(), "All, TV-Y");
    remote.Press("Return");
    EXPECT_TRUE(remote.IsOn("All, TV-Y7"));
    remote.Press("Back");
    EXPECT_TRUE(remote.HasExited());
  });
  EXPECT_EQ(tv.GetInt(kKeys + "tv_y7"), 0x30);
}

}  // namespace
