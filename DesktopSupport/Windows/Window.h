#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace DesktopSupport {

using WindowId = std::uint32_t;

/// What a top-level window says about itself and its application. Texts are UTF-8 and otherwise as the window gave
/// them; what it does not say is empty.
struct Window {
  WindowId id = 0;
  /// WM_CLASS: the name of this instance of the program, often the one it was started by, and that of the program.
  std::string instance = {};
  std::string windowClass = {};
  /// _NET_WM_NAME.
  std::string title = {};
  /// _GTK_APPLICATION_ID, the id of the application's desktop entry.
  std::string applicationId = {};
  /// The window for which this one is a dialog or the like.
  std::optional<WindowId> transientFor = {};
  /// The process behind it, where that is one of this machine.
  std::optional<pid_t> pid = {};
  /// False for panels, the desktop's own background, splash screens, and what asks task bars to pass over it.
  bool isOrdinary = true;
  /// Not to be seen on any workspace, as it is minimised.
  bool isHidden = false;
};

/// The windows that the window manager lists, in the order in which they first appeared.
struct WindowList {
  std::vector<Window> windows;
  /// The same ones as they lie above each other, the lowest first; empty where the window manager does not tell.
  std::vector<WindowId> stack = {};
  /// The one that has the user's attention.
  std::optional<WindowId> active = {};
};

}  // namespace DesktopSupport
