// The channel keys move the focus in a list by as many rows as are in sight.
#pragma once

#include <Elementary.h>

/// From now on, while it has the focus and the keys come. Its rows are all alike.
void PageWithChannelKeys(Evas_Object* genlist);

/// Asks for the keys for a view that has a list on screen, or gives them back.
void TakePageKeys(bool take);
