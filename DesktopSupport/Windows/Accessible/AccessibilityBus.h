#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"

namespace DesktopSupport {

/// A window as its program describes it to screen readers.
struct AccessibleWindow {
  bool isActive = false;
  bool isMinimized = false;
};

/// A program on the accessibility bus.
struct AccessibleProgram {
  /// What it calls itself, such as "mousepad".
  std::string name = {};
  std::optional<pid_t> pid = {};
  /// Its frames and dialogs that are on the screen or minimised.
  std::vector<AccessibleWindow> windows = {};
};

/// How long all questions on the accessibility bus may take, and how long a program may take to answer one of them.
inline constexpr std::chrono::milliseconds accessibilityTime{1500};
inline constexpr std::chrono::milliseconds accessibleProgramTime{400};

/// The programs on the accessibility bus, in the order in which they came; up to 500 of them, with up to 500 windows
/// together. A program that does not answer in time has no windows. `nullopt` if the bus does not run or does not
/// answer; it is not started.
std::optional<std::vector<AccessibleProgram>> accessiblePrograms(const SessionBus& sessionBus);

}  // namespace DesktopSupport
