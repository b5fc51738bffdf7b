// Locks of the rating systems that the set itself has, as keys of the settings store.
#pragma once

/// A key's number; one that cannot be read is made 0.
int ReadRatingKey(const char* key);
/// A number that cannot be written is logged: the key keeps what it has.
void WriteRatingKey(const char* key, int value);
