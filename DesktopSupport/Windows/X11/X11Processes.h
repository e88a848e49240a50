#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>

#include <sys/types.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The processes of windows, as the X server knows them from its sockets, through its XRes extension. They are right
/// for windows that tell no process id too, and for programs in containers, whose own process ids are others.
class X11ClientProcesses {
 public:
  /// Asks for the processes of all `windows` at once; they are known after `collect`. Needs `prefetch` in an earlier
  /// round trip. Asks for this process too: if the server knows it by another number than /proc, so it does the others.
  X11ClientProcesses(X11Connection& connection, std::span<const xcb_window_t> windows);
  void collect(X11Connection& connection);

  static void prefetch(X11Connection& connection);

  /// The process that made `window`. `nullopt` if the server cannot tell, or runs on another machine.
  [[nodiscard]] std::optional<pid_t> processOf(const X11Connection& connection, xcb_window_t window) const;

  /// Whether these are numbers of another PID namespace: that of the server, or of a program between.
  [[nodiscard]] bool areForeign() const { return areForeign_; }

 private:
  bool areForeign_ = false;
  std::optional<xcb_res_query_client_ids_cookie_t> request_;
  std::unordered_map<std::uint32_t, pid_t> processes_;
};

/// What a window and the X server say about the window's process.
struct WindowProcess {
  /// What the server knows, if it runs on this machine.
  std::optional<pid_t> ofServer = {};
  /// _NET_WM_PID, a process id on the machine that WM_CLIENT_MACHINE names.
  std::optional<std::uint32_t> ofWindow = {};
  std::string machine = {};
  /// Whether what the server knows is a number of another PID namespace.
  bool isServerForeign = false;
};

/// The process, if it runs on this machine, whose name is `hostName`. The server is believed rather than the window,
/// since a program in a sandbox may know itself by a number that is another process's here. The window is believed only
/// if that process is this user's, in no sandbox of that kind, and was started for the same display. `processes` is the
/// folder in which the system describes processes.
std::optional<pid_t> localProcess(const WindowProcess& told, const std::string& hostName,
                                  const std::filesystem::path& processes = "/proc");

/// The name of this machine.
std::string hostName();

}  // namespace DesktopSupport
