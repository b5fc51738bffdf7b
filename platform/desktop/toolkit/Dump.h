// What a person would see and hear, as text.
#pragma once

#include <json/value.h>

#include <string>

namespace desktop {

/// The screen as it is: stack, title, texts, rows, checks, buttons, focus, progress, spoken, launched, exited.
Json::Value DumpScreen();
/// Writes it to a file, or to standard output for "-". Throws std::runtime_error.
void SaveDump(const std::string& path);

}  // namespace desktop
