#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/AccessibleObject.h"

namespace TestSupport {

/// Reads windows as a screen reader does. script/desktop keeps programs from talking to one: a program to be read is
/// started with the environment variable `accessibility`.
class ScreenReader {
 public:
  /// The variable in the environment of a program, and its value, that has it talk to screen readers.
  static constexpr std::pair<const char*, const char*> accessibility = {"GTK_A11Y", "atspi"};

  /// Connects to the accessibility bus, which is started where it does not run. Throws where that fails.
  ScreenReader();
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;
  ~ScreenReader();

  /// The windows shown by this process, or by all that talk to screen readers.
  [[nodiscard]] std::vector<AccessibleObject> windows(std::optional<pid_t> process = std::nullopt) const;

  /// Waits until there is such a window and yields the first; none where that takes so long that something must be
  /// broken.
  [[nodiscard]] std::optional<AccessibleObject> awaitWindow(std::optional<pid_t> process = std::nullopt) const;

  /// Waits until `condition` holds; looks again whenever a program says that something on the screen has changed. False
  /// where that takes so long that something must be broken.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition) const;

 private:
  DesktopSupport::MainContextHandle context_;
  DesktopSupport::ObjectHandle<GDBusConnection> bus_;
  guint subscription_ = 0;
};

}  // namespace TestSupport
