// Words that share a row, and do not all fit.
#pragma once

#include <Elementary.h>

#include <string>

/// `name` and `rest` as a part of a list's row has room for them when the row is so wide (at scale 1): a name that is
/// too long gives way, and ends with an ellipsis.
std::string FitIntoRow(Evas_Object* list, const char* itemStyle, const char* part, int width, const std::string& name,
                       const std::string& rest);
