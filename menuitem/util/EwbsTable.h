// Places for emergency warnings: provinces and their areas.
#pragma once

#include <string>
#include <vector>

/// One place; tables hold them in the order of their IDs, from 0 without gaps.
struct nameMap {
  int id;
  std::string saveName;     ///< plain letters, the form that is stored
  std::string displayName;  ///< UTF-8, the form that is shown
};

/// Areas from `first` to `last`.
struct AreaRange {
  int first, last;
};

// Ecuador
const std::vector<nameMap>& EWBS_PROVINCE_NAME_TABLE();
const std::vector<nameMap>& EWBS_AREA_CODE_NAME_TABLE();
/// By province, in the order of the list; two of Manabi's cantons share the entries of their namesakes.
const std::vector<std::vector<AreaRange>>& EWBS_PROVINCE_AREAS();

// Philippines
const std::vector<nameMap>& EWBS_PHI_PROVINCE_NAME_TABLE();
const std::vector<nameMap>& EWBS_PHI_AREA_CODE_NAME_TABLE();
const std::vector<std::vector<AreaRange>>& EWBS_PHI_PROVINCE_AREAS();
