// Notices to the programs that run on a TV: a local socket for each, its name in the TV.
#pragma once

#include <string>
#include <vector>

namespace desktop {

/// Socket of this process, listening; its name is entered in the TV. -1 when there is none to be had.
int OpenNoticeSocket();
/// Takes the name out of the TV and closes the socket.
void CloseNoticeSocket(int descriptor);
/// Takes one waiting sender's notice ("key Down", "pause", ...); false when there is none. `*reply` is to be
/// answered with `AnswerNotice`.
bool TakeNotice(int descriptor, std::string& notice, int* reply);
void AnswerNotice(int reply);

/// Sends a notice to every program on the TV and waits until each has dealt with it; how many there were.
/// Programs that are gone are struck off.
int SendNotice(const std::string& notice);

}  // namespace desktop
