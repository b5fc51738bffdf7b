#include "RatingKeys.h"

#include "Log.h"
#include "vconf.h"

int ReadRatingKey(const char* key) {
  int value = 0;
  if (vconf_get_int(key, &value) == 0) return value;
  if (vconf_set_int(key, 0) != 0) LOG_INFO("resetting %s failed", key);
  return 0;
}

void WriteRatingKey(const char* key, int value) {
  if (vconf_set_int(key, value) != 0) LOG_ERROR("Setting vconf key error");
}
