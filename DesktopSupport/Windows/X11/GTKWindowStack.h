#pragma once

#include <string>
#include <vector>

namespace DesktopSupport {

/// What a window of a program that is made with GTK is called on the session bus.
struct GTKWindowName {
  /// The program's connection, ":1.42".
  std::string connection = {};
  /// The path of the window's object there.
  std::string path = {};

  bool operator==(const GTKWindowName&) const = default;
};

/// The names of the windows on the X server that DISPLAY names, the topmost window first; windows without a name are
/// left out. Empty where there is no server, or no window manager that tells the order.
std::vector<GTKWindowName> readGTKWindowStack();

}  // namespace DesktopSupport
