#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/AccessibleObject.h"
#include "Tests/Support/GIOHandles.h"

namespace TestSupport {

/// Reads windows as a screen reader does. Programs in script/desktop don't support that unless they are started with
/// the environment variable `accessibility`.
class ScreenReader {
 public:
  /// The environment variable, with its value, that makes a program support screen readers.
  static constexpr std::pair<const char*, const char*> accessibility = {"GTK_A11Y", "atspi"};

  /// Connects to the accessibility bus, and starts it if it does not run. Throws if that fails.
  ScreenReader();
  ScreenReader(const ScreenReader&) = delete;
  ScreenReader& operator=(const ScreenReader&) = delete;
  ~ScreenReader();

  /// The windows of this process, or of all processes that support screen readers.
  [[nodiscard]] std::vector<AccessibleObject> windows(std::optional<pid_t> process = std::nullopt) const;

  /// Waits until there is such a window and returns the first, or `nullopt` if it takes too long.
  [[nodiscard]] std::optional<AccessibleObject> awaitWindow(std::optional<pid_t> process = std::nullopt) const;

  /// Waits until `condition` holds, and checks it when a program reports a change on screen. Returns false if it takes
  /// too long.
  [[nodiscard]] bool waitUntil(const std::function<bool()>& condition) const;

 private:
  void subscribe();

  DesktopSupport::MainContextHandle context_;
  ObjectHandle<GDBusConnection> bus_;
  guint subscription_ = 0;
};

}  // namespace TestSupport
