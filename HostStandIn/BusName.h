#pragma once

#include <expected>
#include <string>

#include "DesktopSupport/Bus/SessionBus.h"

namespace HostStandIn {

/// A well-known name that this process owns on the session bus. Destroying it gives up the name.
class BusName {
 public:
  /// Takes the name. Fails if another process owns it or the bus refuses.
  static std::expected<BusName, DesktopSupport::BusError> acquire(const DesktopSupport::SessionBus& bus,
                                                                  std::string name);

  BusName(BusName&&) noexcept = default;
  BusName& operator=(BusName&&) noexcept = default;
  BusName(const BusName&) = delete;
  BusName& operator=(const BusName&) = delete;
  ~BusName();

 private:
  BusName(DesktopSupport::SessionBus bus, std::string name) : bus_(std::move(bus)), name_(std::move(name)) {}

  DesktopSupport::SessionBus bus_;
  std::string name_;
};

}  // namespace HostStandIn
