#pragma once

#include <chrono>
#include <optional>
#include <string>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Tests/Support/GIOHandles.h"

namespace Soak {

/// A private connection to the session bus. Throws if there is no bus.
class Bus {
 public:
  Bus();

  /// Asks the application with this bus name to open a URL, and waits for its answer. Null if it succeeds within
  /// `time`.
  [[nodiscard]] std::optional<DesktopSupport::BusError> open(const std::string& busName, const std::string& url,
                                                             std::chrono::milliseconds time) const;

  /// The process that owns a name, or `nullopt` if there is none.
  [[nodiscard]] std::optional<pid_t> ownerOf(const std::string& busName) const;

  [[nodiscard]] GDBusConnection* connection() const { return connection_.get(); }

 private:
  TestSupport::ObjectHandle<GDBusConnection> connection_;
};

}  // namespace Soak
