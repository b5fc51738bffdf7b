// The lines of a message: how far apart they stand, where they break, and the height that they need.
#pragma once

#include <Elementary.h>

#include <string>

/// Shows markup in a text block of a layout, as wide as given at most, in pixels of a 1920-pixel screen. Where it does
/// not fit one line it breaks after its first sentence or else into lines of like length; and the layout is as high in
/// one script as in another.
void SetLines(Evas_Object* layout, const char* part, const std::string& markup, int width);
