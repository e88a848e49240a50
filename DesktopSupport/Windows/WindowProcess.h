#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <sys/types.h>

namespace DesktopSupport {

/// What a window and the X server tell about the process behind the window.
struct WindowProcess {
  /// What the server knows, if it is this machine's.
  std::optional<pid_t> ofServer = {};
  /// _NET_WM_PID, a number on the machine WM_CLIENT_MACHINE.
  std::optional<std::uint32_t> ofWindow = {};
  std::string machine = {};
};

/// The process, if it is one of this machine, whose name is `hostName`. The server's word counts before the window's.
std::optional<pid_t> localProcess(const WindowProcess& told, const std::string& hostName);

/// The name of this machine.
std::string hostName();

}  // namespace DesktopSupport
