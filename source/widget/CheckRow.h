// A list row with a check box before its name. The row has the focus, never the box; a press of the row turns the box.
#pragma once

#include <Elementary.h>

#include <string>

/// For the row's class: the name, cut at 511 bytes, for the row's text, and a box for its place. Null for other parts.
char* CheckRowText(const char* part, const std::string& name);
/// `style` is the box's; `list` is the list that the row is in.
Evas_Object* AddRowBox(Evas_Object* list, const char* part, const char* style, bool on);

/// Makes room for the box; for each row as it is made.
void ShowRowBox(Elm_Object_Item* row);
/// Null while the row is out of sight.
Evas_Object* BoxOf(const Elm_Object_Item* row);
