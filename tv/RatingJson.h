// The rating system as JSON, in the form in which the program hands it on.
#pragma once

#include <optional>
#include <string>

#include "tvs/RatingTable.h"

/// A name as the program shows it: 511 bytes of it at most, up to the first character that is broken.
std::string ShownName(const desktop::RatingName& name, const std::string& without);
std::string ShownName(const desktop::RatingName& name, const char* without, size_t number);
std::string ShownRegion(const desktop::RatingSystem& system);

/// "null" without a system.
std::string RatingJson(const std::optional<desktop::RatingSystem>& system);
/// Locks are off. A null in place of a name is a name that is missing. Throws std::runtime_error that says what is
/// wrong where in the text.
desktop::RatingSystem ParseRatingJson(const std::string& text);
