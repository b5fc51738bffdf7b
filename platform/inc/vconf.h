// Settings store: typed values under keys such as "db/menu/..." (kept) and "memory/..." (until power-off).
#pragma once

extern "C" {

/// 0 on success, -1 when the key is missing, holds another type, or the store fails; the output is then
/// untouched. A write that has returned 0 survives a power cut ("memory/..." keys excepted).
int vconf_get_int(const char* key, int* value);
int vconf_get_bool(const char* key, int* value);
/// A `malloc` copy that the caller frees, or null.
char* vconf_get_str(const char* key);
int vconf_set_int(const char* key, int value);
int vconf_set_str(const char* key, const char* value);

}  // extern "C"
