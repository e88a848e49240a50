#pragma once

#include <chrono>
#include <expected>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"

namespace DesktopSupport {

/// A method of the bus itself.
BusMethod busDaemonMethod(std::string name);

/// The bus itself, which knows who owns which name. `bus` must outlive it.
class BusDaemon {
 public:
  /// Every call waits for `timeout` at most.
  BusDaemon(const SessionBus& bus, std::chrono::milliseconds timeout) : bus_(bus), timeout_(timeout) {}

  /// Asks for a name, and does not queue for it: whether this process now owns it, or another one does.
  [[nodiscard]] std::expected<bool, BusError> requestName(const std::string& name) const;

  /// Gives a name up. Returns after everything that the bus had sent to the name has arrived, unless the bus does not
  /// answer.
  void releaseName(const std::string& name) const;

  /// Returns after the bus has received everything that was sent before, and everything that it had sent has arrived,
  /// unless the bus does not answer.
  void synchronize() const;

  /// The unique name of the connection that owns `name`. `nullopt` if there is none, or the bus does not answer.
  [[nodiscard]] std::optional<std::string> ownerOf(const std::string& name) const;

  /// The names that are owned: unique and well-known ones. Empty if the bus does not answer.
  [[nodiscard]] std::vector<std::string> names() const;

  /// The process that owns `name`. `nullopt` if there is none, or the bus does not know it or does not answer.
  [[nodiscard]] std::optional<pid_t> processOf(const std::string& name) const;

 private:
  const SessionBus& bus_;
  std::chrono::milliseconds timeout_;
};

}  // namespace DesktopSupport
