// The program's entry.
#pragma once

namespace quirelle {

/// Runs the program; 0 whatever the framework's main loop answered.
__attribute__((visibility("default"))) int main(int argc, char** argv);

/// Set by the first launch request of the process.
extern bool isAnyWindowActive;

}  // namespace quirelle
