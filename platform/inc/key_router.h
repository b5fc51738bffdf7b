// Key router of the display server: which remote keys reach this program.
#pragma once

#include "display.h"

/// One request: key names, each with a grab mode. Key names are static texts of the caller.
struct KeyRouterKeyList {
  static constexpr int kMost = 64;
  struct {
    const char* name;
    int mode;
  } keys[kMost];
  int count;
};

extern "C" {

/// `globalId` is the router's identifier among the display's globals, 0 when the display has none.
bool KeyRouter_Initialize(display_s* display, display_registry_s* registry, display_seat_s* seat,
                          unsigned int globalId);
/// Empties a request.
void KeyRouter_Reset_KeyList(KeyRouterKeyList* list);
/// Modes in use: 2 and 5. Keys past `kMost` are dropped.
void KeyRouter_Add_Key(const char* keyName, int mode, KeyRouterKeyList* list);
/// False when the router refuses the request; nothing is grabbed (released) then.
bool KeyRouter_Set_KeyList(int surface, KeyRouterKeyList* list);
bool KeyRouter_UnSet_KeyList(int surface, KeyRouterKeyList* list);
void KeyRouter_Finalize();

}  // extern "C"
