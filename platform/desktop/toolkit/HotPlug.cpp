// Tells the program of sticks that come and go: a watch on the folder that holds them, and one on the folder that it
// is in, because it comes with the first stick.
#include <Ecore.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <set>
#include <utility>

#include "Gate.h"
#include "Usb.h"

namespace desktop {

namespace {

constexpr uint32_t kComing = IN_CREATE | IN_MOVED_TO;
constexpr uint32_t kGoing = IN_DELETE | IN_MOVED_FROM;

struct Watch {
  int descriptor = -1;
  /// The watch on the folder of the sticks, while there is one.
  int folder = -1;
  Ecore_Fd_Handler* handler = nullptr;
  usb_device_connected_cb callback = nullptr;
  void* data = nullptr;
  /// What the program knows of.
  std::set<std::string> sticks;
};

Watch g_watch;

bool Learn(const std::string& name, bool comes) {
  return comes ? g_watch.sticks.insert(name).second : g_watch.sticks.erase(name) > 0;
}

void Tell(const std::string& name, bool comes) {
  if (name.empty() || name.starts_with(".") || !g_watch.callback || !Learn(name, comes)) return;
  const std::string path = std::filesystem::absolute(UsbDirectory() / name);
  g_watch.callback(MakeUsbDevice(name, path), comes ? "added" : "blocked", g_watch.data);
}

std::set<std::string> Present() {
  std::set<std::string> names;
  for (const auto& stick : UsbSticks()) names.insert(stick.filename());
  return names;
}

void WatchFolder() {
  g_watch.folder = inotify_add_watch(g_watch.descriptor, UsbDirectory().c_str(), kComing | kGoing | IN_ONLYDIR);
}

/// The folder itself comes with the sticks that are in it already, or goes with all of them.
void TellOfFolder(bool comes) {
  if (comes) {
    WatchFolder();
  } else if (g_watch.folder >= 0) {
    inotify_rm_watch(g_watch.descriptor, std::exchange(g_watch.folder, -1));
  }
  for (const std::string& name : comes ? Present() : std::set(g_watch.sticks)) Tell(name, comes);
}

void Take(const inotify_event& event) {
  const std::string name = event.len ? event.name : "";
  const bool comes = (event.mask & kComing) != 0;
  if (event.wd == g_watch.folder) {
    if (event.mask & IN_ISDIR) Tell(name, comes);
  } else if (name == UsbDirectory().filename()) {
    TellOfFolder(comes);
  }
}

Eina_Bool ReadEvents(void*, Ecore_Fd_Handler*) {
  alignas(inotify_event) char buffer[4096];
  const ssize_t length = read(g_watch.descriptor, buffer, sizeof buffer);
  for (ssize_t at = 0; at < length && g_watch.callback;) {
    const auto* event = reinterpret_cast<const inotify_event*>(buffer + at);
    at += static_cast<ssize_t>(sizeof *event + event->len);
    Take(*event);
  }
  return ECORE_CALLBACK_RENEW;
}

void StopWatching() {
  if (g_watch.handler) ecore_main_fd_handler_del(g_watch.handler);
  if (g_watch.descriptor >= 0) close(g_watch.descriptor);
  g_watch = {};
}

int StartWatching() {
  g_watch.descriptor = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
  const std::string beside = UsbDirectory().parent_path();
  if (g_watch.descriptor < 0 ||
      inotify_add_watch(g_watch.descriptor, beside.c_str(), kComing | kGoing | IN_ONLYDIR) < 0) {
    StopWatching();
    return -1;
  }
  WatchFolder();
  g_watch.sticks = Present();
  g_watch.handler = ecore_main_fd_handler_add(g_watch.descriptor, ECORE_FD_READ, ReadEvents, nullptr, nullptr, nullptr);
  return 0;
}

}  // namespace

}  // namespace desktop

using namespace desktop;

int usb_set_connected_cb(usb_device_connected_cb callback, void* data) {
  return Gate::Pass<int>(op::usb_set_connected_cb, Entry(callback != nullptr), [&](Entry&) {
    StopWatching();
    if (StartWatching() != 0) return -1;
    g_watch.callback = callback;
    g_watch.data = data;
    return 0;
  });
}

int usb_unset_connected_cb() {
  return Gate::Pass<int>(op::usb_unset_connected_cb, Entry(), [](Entry&) {
    StopWatching();
    return 0;
  });
}
