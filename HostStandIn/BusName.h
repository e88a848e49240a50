#pragma once

#include <expected>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"

namespace HostStandIn {

/// A well-known name that this process owns on the session bus. Destroying it gives up the name.
class BusName {
 public:
  /// Takes the name. Fails if another process owns it or the bus refuses.
  static std::expected<BusName, DesktopSupport::BusError> acquire(const DesktopSupport::SessionBus& bus,
                                                                  std::string name);

  BusName(BusName&& other) noexcept : bus_(std::move(other.bus_)), name_(std::exchange(other.name_, {})) {}
  BusName& operator=(BusName&& other) noexcept {
    std::swap(bus_, other.bus_);
    std::swap(name_, other.name_);
    return *this;
  }
  BusName(const BusName&) = delete;
  BusName& operator=(const BusName&) = delete;
  ~BusName();

 private:
  BusName(DesktopSupport::SessionBus bus, std::string name) : bus_(std::move(bus)), name_(std::move(name)) {}

  DesktopSupport::SessionBus bus_;
  /// Empty if this was moved from.
  std::string name_;
};

}  // namespace HostStandIn
