// Layouts and lists as the windows build them.
#pragma once

#include <Elementary.h>

#include <string>

/// A layout of the theme's group; null when there is no parent or no such group.
Evas_Object* AddLayout(Evas_Object* parent, const char* group);

/// A list of rows that are all alike, of which one has the focus whenever the list has; null without a parent.
Evas_Object* AddList(Evas_Object* parent);

/// Marks a row that is on screen as the choice that is stored, for the eye and the ear, or as another: it may look like
/// a row that went.
void MarkChosen(Elm_Object_Item* row, bool chosen);

/// Marks a row that is on screen as one whose value can be changed.
void MarkEditable(Elm_Object_Item* row);

/// A class of rows, to be freed with `elm_genlist_item_class_free`; null when it cannot be made. `style` and the
/// functions are those of the toolkit's item class.
Elm_Genlist_Item_Class* NewRowClass(const char* style, Elm_Gen_Item_Text_Get_Cb text,
                                    Elm_Gen_Item_Content_Get_Cb content);

/// A text that is none of the program's own, as the toolkit's texts take it: what looks like markup in it is shown.
std::string Markup(const std::string& text);
