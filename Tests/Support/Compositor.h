#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace TestSupport {

/// A window as the compositor knows it.
struct CompositorWindow {
  /// The compositor's own name for it.
  std::string id;
  /// KWin replaces line feeds by blanks, and adds " <2>" if another window has the same title.
  std::string title;
  /// The application id of a Wayland window, or the class of an X window, which KWin writes in small letters.
  std::string application;
  pid_t process = 0;
  bool isFocused = false;
  bool isMinimized = false;
};

/// Asks the compositor of the private desktop about the windows on it, and changes them, in the compositor's own way.
class Compositor {
 public:
  enum class Change { focus, minimize, close };

  /// The compositor that runs: sway, KWin, or GNOME Shell with the tests' extension. Throws if it is none of them.
  [[nodiscard]] static std::unique_ptr<Compositor> running();

  Compositor() = default;
  Compositor(const Compositor&) = delete;
  Compositor& operator=(const Compositor&) = delete;
  virtual ~Compositor() = default;

  /// Wayland and X windows that a taskbar would show. GNOME Shell's are in stacking order, the lowest first.
  [[nodiscard]] virtual std::vector<CompositorWindow> windows() = 0;

  /// Waits until there is a window with this title, and returns it. `nullopt` if it takes too long.
  [[nodiscard]] std::optional<CompositorWindow> awaitWindow(std::string_view title);

  /// Waits until there is a window with this title, changes it, and waits until it has changed. Returns false if it
  /// takes too long. sway cannot minimize: it moves the window to the scratchpad instead, which is not on screen.
  [[nodiscard]] bool focus(std::string_view title);
  [[nodiscard]] bool minimize(std::string_view title);
  [[nodiscard]] bool close(std::string_view title);

  /// Waits until there is no window. The windows of a program that has ended may still be for a moment.
  [[nodiscard]] bool waitForNoWindows();

  /// Asks again and again until `condition` holds. Returns false if it takes too long.
  [[nodiscard]] static bool waitUntil(const std::function<bool()>& condition);

 protected:
  virtual void change(const CompositorWindow& window, Change change) = 0;

 private:
  [[nodiscard]] std::optional<CompositorWindow> find(std::string_view title);
  [[nodiscard]] std::optional<CompositorWindow> findAndChange(std::string_view title, Change change);
  /// Waits until the window is as it should be. Others may have its title.
  [[nodiscard]] bool awaitChange(const std::optional<CompositorWindow>& changed,
                                 bool (*isDone)(const CompositorWindow& window));
};

}  // namespace TestSupport
