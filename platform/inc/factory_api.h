// Factory settings of the set.
#pragma once

extern "C" {

/// Moves a multi-region set to the region of a country. 1 is success.
int factory_update_region_by_country(int country);

}  // extern "C"
