// What the tests of the signal information share: the window, its TV, and the round of its refresh.
#pragma once

#include <string>

#include "Harness.h"

namespace test {

inline constexpr const char* kSignalInformation = "signal-information";
/// In seconds; the window refreshes once in it.
inline constexpr double kRound = 2.05;

/// The program with the window open.
inline void Open(const Body& body) { Run({kSignalInformation}, body); }

/// Figures of the transponder that the tuner is on.
inline void SetSignal(const std::string& figures) {
  Change("UPDATE transponder SET " + figures + " WHERE id = (SELECT transponder FROM picture WHERE profile = 1)");
}

/// The first channel of another list is on screen, and has been for long.
inline void Receive(int antenna) {
  Change(
      "UPDATE picture SET antenna = ?1, service_mode = -1, (service, transponder) = (SELECT id, transponder FROM "
      "service WHERE antenna = ?1 AND service_mode = -1 ORDER BY major, minor, id LIMIT 1) WHERE profile = 1",
      antenna);
}

}  // namespace test
