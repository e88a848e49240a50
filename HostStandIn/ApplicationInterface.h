#pragma once

#include <functional>
#include <string>

#include "DesktopSupport/Bus/SessionBus.h"
#include "HostStandIn/ExportedInterface.h"

namespace HostStandIn {

/// The host's org.freedesktop.Application on the bus, which receives URLs. There is nothing to activate: every call but
/// Open does nothing.
class ApplicationInterface {
 public:
  using URLHandler = std::move_only_function<void(const std::string& url)>;

  /// Calls `open` with each URL of an Open call, in order, after the caller was answered. If any of them is not a host
  /// URL, the call fails with InvalidArgs and opens none.
  ApplicationInterface(const DesktopSupport::SessionBus& bus, URLHandler open);

 private:
  ExportedInterface exported_;
};

}  // namespace HostStandIn
