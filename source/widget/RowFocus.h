// A list that has the focus has it on a row.
#pragma once

#include <Elementary.h>

/// From now on the list hands the focus, whenever it gets it, to the row that had it last: by itself the
/// toolkit does so only from the first arrow key on.
void KeepRowFocus(Evas_Object* genlist);

/// A list to look at only: its rows take the focus just for whoever has them read out.
void KeepFocusForEar(Evas_Object* genlist);

/// The row that gets the focus with the list.
void SetFocusRow(Elm_Object_Item* row);
