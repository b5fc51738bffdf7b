// Sentences for the ear.
#pragma once

#include <Elementary.h>

#include <initializer_list>
#include <string>

namespace spoken {

/// What is there of the parts, joined by ", ".
std::string Joined(std::initializer_list<std::string> parts);
/// That so many items follow.
std::string Items(int count);
/// The button of a string ID, as a button.
std::string Button(const char* id);

/// What the screen reader says of an object when it has the focus: its name, and how it stands with it. By itself a
/// button is named by its text.
void SetName(Evas_Object* object, const std::string& name);
void SetState(Evas_Object* object, const std::string& state);
std::string NameOf(const Evas_Object* object);
std::string StateOf(const Evas_Object* object);
/// The same of a row of a list, which by itself is named by its texts.
void SetRowName(Elm_Object_Item* row, const std::string& name);
void SetRowState(Elm_Object_Item* row, const std::string& state);

}  // namespace spoken
