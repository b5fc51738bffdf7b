// What a TV's file holds.
#pragma once

#include <string>

namespace desktop {

class Store;

/// "qTV1": what marks an SQLite file as a TV.
constexpr int kApplicationId = 0x71545631;

/// SQL that makes an empty TV.
extern const char* const kSchemaSql;
/// The indexes of the channel list, which a bulk insertion leaves to its end.
extern const char* const kServiceIndexSql;

/// What a power cycle does to the store: "memory/..." keys go back to what the set comes up with.
void PowerOn(Store& store, const std::string& bootId);

}  // namespace desktop
