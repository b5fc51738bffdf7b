#include "Notices.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>

#include "Gate.h"

namespace desktop {

namespace {

constexpr int kReplySeconds = 10;
constexpr size_t kMostBytes = 4096;

/// Names without a place in the file system: nothing is left over when a program is killed.
socklen_t Address(const std::string& name, sockaddr_un& address) {
  address = {};
  address.sun_family = AF_UNIX;
  const size_t length = std::min(name.size(), sizeof address.sun_path - 1);
  memcpy(address.sun_path + 1, name.data(), length);
  return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
}

std::string OwnName() {
  timeval now;
  gettimeofday(&now, nullptr);
  return "quirelle-" + std::to_string(getpid()) + "-" + std::to_string(now.tv_sec) + std::to_string(now.tv_usec);
}

/// 1 dealt with, 0 nobody there, -1 no answer in time.
int SendTo(const std::string& name, const std::string& notice) {
  const int descriptor = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
  if (descriptor < 0) return -1;
  const timeval timeout = {kReplySeconds, 0};
  setsockopt(descriptor, SOL_SOCKET, SO_RCVTIMEO, &timeout, sizeof timeout);
  sockaddr_un address;
  const socklen_t length = Address(name, address);
  int result = 0;
  if (connect(descriptor, reinterpret_cast<sockaddr*>(&address), length) == 0) {
    char reply = 0;
    send(descriptor, notice.data(), notice.size(), MSG_NOSIGNAL);
    // A program that the notice ended closes the socket without a word; it has dealt with it too.
    result = recv(descriptor, &reply, 1, 0) >= 0 ? 1 : -1;
  }
  close(descriptor);
  return result;
}

}  // namespace

int OpenNoticeSocket() {
  const int descriptor = socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (descriptor < 0) return -1;
  const std::string name = OwnName();
  sockaddr_un address;
  const socklen_t length = Address(name, address);
  if (bind(descriptor, reinterpret_cast<sockaddr*>(&address), length) != 0 || listen(descriptor, 16) != 0) {
    close(descriptor);
    return -1;
  }
  Store::Get().Write([&] { Query("REPLACE INTO program VALUES (?, ?)", static_cast<int>(getpid()), name).Run(); },
                     false);
  return descriptor;
}

void CloseNoticeSocket(int descriptor) {
  if (descriptor < 0) return;
  close(descriptor);
  Store::Get().Write([] { Query("DELETE FROM program WHERE pid = ?", static_cast<int>(getpid())).Run(); }, false);
}

bool TakeNotice(int descriptor, std::string& notice, int* reply) {
  const int connection = accept4(descriptor, nullptr, nullptr, SOCK_CLOEXEC);
  if (connection < 0) return false;
  char buffer[kMostBytes];
  const ssize_t length = recv(connection, buffer, sizeof buffer, 0);
  notice.assign(buffer, length > 0 ? static_cast<size_t>(length) : 0);
  *reply = connection;
  return true;
}

void AnswerNotice(int reply) {
  send(reply, "+", 1, MSG_NOSIGNAL);
  close(reply);
}

int SendNotice(const std::string& notice) {
  std::vector<std::pair<int64_t, std::string>> programs;
  {
    Query q("SELECT pid, socket FROM program ORDER BY pid");
    while (q.Row()) programs.emplace_back(q.Int(0), q.Text(1));
  }
  int reached = 0;
  for (const auto& [pid, name] : programs) {
    const int result = SendTo(name, notice);
    if (result > 0) ++reached;
    if (result < 0) throw StoreError("program " + std::to_string(pid) + " does not answer");
    if (result == 0) Store::Get().Write([pid = pid] { Query("DELETE FROM program WHERE pid = ?", pid).Run(); }, false);
  }
  return reached;
}

}  // namespace desktop
