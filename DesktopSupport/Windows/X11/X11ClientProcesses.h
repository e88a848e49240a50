#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>

#include <sys/types.h>
#include <xcb/res.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"

namespace DesktopSupport {

/// The processes behind the windows, as the X server itself knows them from its sockets, through its XRes extension.
/// That holds for windows that tell no process id, and for programs in containers, which know theirs by another number.
class X11ClientProcesses {
 public:
  /// Asks for the processes of all `windows` at once; they are known after `collect`. The extension must have been
  /// asked for by `prefetch` in an earlier round trip.
  X11ClientProcesses(X11Connection& connection, std::span<const xcb_window_t> windows);
  void collect(X11Connection& connection);

  static void prefetch(X11Connection& connection);

  /// The process that made `window`; none where the server cannot tell or runs on another machine.
  [[nodiscard]] std::optional<pid_t> processOf(const X11Connection& connection, xcb_window_t window) const;

 private:
  std::optional<xcb_res_query_client_ids_cookie_t> request_;
  std::unordered_map<std::uint32_t, pid_t> processes_;
};

}  // namespace DesktopSupport
