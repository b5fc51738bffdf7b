// The desk has no other application that would take the remote's keys: what is asked for is granted.
#include "Gate.h"
#include "key_router.h"

using namespace desktop;

namespace {

/// The desktop's only global.
constexpr unsigned int kRouterId = 1;

std::string Text(const KeyRouterKeyList& list) {
  std::string text;
  for (int i = 0; i < list.count; ++i) {
    text += (i ? " " : "") + std::string(list.keys[i].name) + ":" + std::to_string(list.keys[i].mode);
  }
  return text;
}

}  // namespace

unsigned int display_global_find(display_s*, const char* interfaceName) {
  return Gate::Pass<unsigned int>(op::display_global_find, Entry(interfaceName), [&](Entry&) {
    return std::string_view(interfaceName) == "nyxel_keyrouter" ? kRouterId : 0;
  });
}

bool KeyRouter_Initialize(display_s*, display_registry_s*, display_seat_s*, unsigned int globalId) {
  return Gate::Pass<bool>(op::KeyRouter_Initialize, Entry(globalId), [&](Entry&) { return globalId == kRouterId; });
}

void KeyRouter_Reset_KeyList(KeyRouterKeyList* list) { list->count = 0; }

void KeyRouter_Add_Key(const char* keyName, int mode, KeyRouterKeyList* list) {
  if (list->count < KeyRouterKeyList::kMost) list->keys[list->count++] = {keyName, mode};
}

bool KeyRouter_Set_KeyList(int surface, KeyRouterKeyList* list) {
  return Gate::Pass<bool>(op::KeyRouter_Set_KeyList, Entry(surface, Text(*list)), [](Entry&) { return true; });
}

bool KeyRouter_UnSet_KeyList(int surface, KeyRouterKeyList* list) {
  return Gate::Pass<bool>(op::KeyRouter_UnSet_KeyList, Entry(surface, Text(*list)), [](Entry&) { return true; });
}

void KeyRouter_Finalize() {
  Gate::Run(op::KeyRouter_Finalize, Entry(), [](Entry&) {});
}
