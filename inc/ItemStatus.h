// What a list row looks like.
#pragma once

enum ITEM_STATUS {
  ITEM_STATUS_ENABLED = 1,
  ITEM_STATUS_FOCUSED = 2,
  /// Faint: it can be seen and not chosen.
  ITEM_STATUS_DISABLED = 3,
  ITEM_STATUS_UNFOCUSED = 4,
};
