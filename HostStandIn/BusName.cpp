#include "HostStandIn/BusName.h"

#include <chrono>

#include "DesktopSupport/Bus/BusDaemon.h"

namespace HostStandIn {

using DesktopSupport::BusError;

namespace {

constexpr std::chrono::seconds answerTime(25);

}  // namespace

std::expected<BusName, BusError> BusName::acquire(const DesktopSupport::SessionBus& bus, std::string name) {
  const auto isOwner = DesktopSupport::BusDaemon(bus, answerTime).requestName(name);
  if (!isOwner)
    return std::unexpected(isOwner.error());
  if (!*isOwner)
    return std::unexpected(BusError{"org.freedesktop.DBus.Error.AddressInUse", name + " is running already"});
  return BusName(bus, std::move(name));
}

BusName::~BusName() {
  if (!name_.empty())
    DesktopSupport::BusDaemon(bus_, answerTime).releaseName(name_);
}

}  // namespace HostStandIn
