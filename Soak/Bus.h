#pragma once

#include <chrono>
#include <optional>
#include <string>

#include <sys/types.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace Soak {

/// A connection to the session bus that nobody shares. Throws if there is no bus.
class Bus {
 public:
  Bus();

  /// Has the application with this bus name open a URL, and waits for its answer. The error is null if it answers
  /// within `time`.
  [[nodiscard]] std::optional<DesktopSupport::BusError> open(const std::string& busName, const std::string& url,
                                                             std::chrono::milliseconds time) const;

  /// The process that owns a name; null if nobody does.
  [[nodiscard]] std::optional<pid_t> ownerOf(const std::string& busName) const;

  [[nodiscard]] GDBusConnection* connection() const { return connection_.get(); }

 private:
  DesktopSupport::ObjectHandle<GDBusConnection> connection_;
};

}  // namespace Soak
