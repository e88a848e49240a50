#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace DesktopSupport {

/// Identifies a window in its list. The meaning of the number depends on the source.
using WindowID = std::uint64_t;

/// What a top-level window says about itself and its application. Texts are as the window gave them: they
/// should be UTF-8, and may not be. What it does not say is empty.
struct Window {
  WindowID id = 0;
  /// The name of this instance of the program, often the name it was started by (WM_CLASS on X11).
  std::string instance = {};
  /// The class of the program's windows (WM_CLASS on X11).
  std::string windowClass = {};
  std::string title = {};
  /// The id of the application's desktop entry (_GTK_APPLICATION_ID on X11).
  std::string applicationID = {};
  /// The window that this one belongs to, as a dialog does.
  std::optional<WindowID> transientFor = {};
  /// The window's process, if it runs on this machine.
  std::optional<pid_t> pid = {};
  /// False for panels, the desktop's background, splash screens, and windows that ask task bars to leave them out.
  bool isOrdinary = true;
  /// Whether the window is minimised, hence on no workspace to be seen.
  bool isHidden = false;
};

/// The windows on the screen, in the order in which they first appeared.
struct WindowList {
  std::vector<Window> windows;
  /// The same windows in stacking order, the lowest first. Empty if the source does not tell.
  std::vector<WindowID> stack = {};
  /// The window that has the user's attention.
  std::optional<WindowID> active = {};
  /// Whether all windows are listed. A source that cannot see them all says why in `problems`.
  bool isComplete = true;
  /// What the list lacks and why, a sentence each, for the log.
  std::vector<std::string> problems = {};
};

/// The name that a GTK program's window has on the session bus.
struct GTKWindowName {
  /// The program's connection, such as ":1.42".
  std::string connection = {};
  /// The path of the window's object.
  std::string path = {};

  bool operator==(const GTKWindowName&) const = default;
};

/// Why the desktop could not be read.
struct DesktopError {
  /// A sentence.
  std::string message;
  /// Whether this desktop has no such thing, which is no fault of anybody's.
  bool isAbsent = false;
};

class Compositor;

/// What shows the windows.
enum class DisplayServer { wayland, x11 };

/// A way to learn about the windows on the screen, such as an X server.
struct WindowSource {
  /// The kind of desktop that has this source.
  DisplayServer server = DisplayServer::x11;
  /// The technical name of what the source needs.
  const char* feature = "";
  /// The windows; fails if the source does not tell, and with `isAbsent` if it is not there. The compositor runs if the
  /// desktop is a Wayland one.
  std::expected<WindowList, DesktopError> (*windows)(Compositor& compositor) = nullptr;
  /// The GTK windows, the topmost first; empty if the source is not there or does not tell. Null if it never does.
  std::vector<GTKWindowName> (*gtkWindows)(Compositor& compositor) = nullptr;
  /// How the name of the compositor's program begins, if only that compositor has this source. On the session bus, one
  /// compositor may answer although another one runs inside of it.
  const char* compositor = "";
};

}  // namespace DesktopSupport
