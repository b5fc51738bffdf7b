// What the information windows show: a hint, and below it a list of facts, each a title and its value.
#pragma once

#include <Elementary.h>

#include <string>

/// Pixels of a 1920-pixel screen.
constexpr int kInformationWidth = 880;

/// Puts a layout into a window, at the size of an information window or larger.
void PlaceInformation(Evas_Object* window, Evas_Object* layout);
/// The window's layout with its hint, in place; null without one in the theme.
Evas_Object* AddInformation(Evas_Object* window, const std::string& hint);
/// A distance of that many pixels in a part of the layout.
void AddInformationPad(Evas_Object* layout, const char* part, int height);

/// A list of facts: the keys pass it by, and nothing of it is ever out of sight.
Evas_Object* AddFactList(Evas_Object* layout);
/// In a language whose titles are too long for the usual size.
bool NeedsAdjustFontSize();
/// The text of a part for the toolkit, which frees it; null for a part that has none. A value that is written from
/// right to left has a part of its own.
char* FactText(const char* part, const std::string& title, const std::string& value, bool reversed);
