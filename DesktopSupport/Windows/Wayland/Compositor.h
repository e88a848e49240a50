#pragma once

#include <chrono>
#include <expected>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/FileDescriptor.h"
#include "DesktopSupport/Windows/Window.h"

namespace DesktopSupport {

class WaylandConnection;

/// The Wayland compositor whose socket WAYLAND_DISPLAY names, or else "wayland-0" in the user's runtime folder, as for
/// every program. What several sources need of it is asked for once.
class Compositor {
 public:
  /// It may take `patience` for each round trip.
  explicit Compositor(std::chrono::milliseconds patience = longestSilence);
  Compositor(const Compositor&) = delete;
  Compositor& operator=(const Compositor&) = delete;
  ~Compositor();

  /// The time limit for a compositor, far more than one that is busy needs.
  static constexpr std::chrono::seconds longestSilence{3};

  /// Whether a compositor takes connections at the socket.
  [[nodiscard]] bool isRunning();

  /// Why there is none although WAYLAND_DISPLAY names one.
  [[nodiscard]] const std::optional<std::string>& problem();

  /// The name of its program, such as "weston".
  [[nodiscard]] std::string name();

  /// Whether the name of its program begins like this, or is not known.
  [[nodiscard]] bool mayBe(std::string_view program);

  /// Whether the numbers by which it knows processes are their numbers here: not if this process or the compositor is
  /// in a PID namespace of its own.
  [[nodiscard]] bool numbersProcessesAsHere();

  /// The connection that the sources share. Fails if it cannot be made, each time with the same error.
  [[nodiscard]] std::expected<WaylandConnection*, DesktopError> connection();

 private:
  void connect();
  [[nodiscard]] ProcessInfo process();

  std::chrono::milliseconds patience_;
  bool hasConnected_ = false;
  std::optional<FileDescriptor> socket_;
  std::optional<std::string> problem_;
  std::optional<std::expected<std::unique_ptr<WaylandConnection>, DesktopError>> connection_;
};

}  // namespace DesktopSupport
