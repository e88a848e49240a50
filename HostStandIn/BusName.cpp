#include "HostStandIn/BusName.h"

#include <chrono>
#include <cstdint>

namespace HostStandIn {

using DesktopSupport::BusError;

namespace {

// The bus's own numbers for "in place of nobody, and not in a queue" and "you are the owner now".
constexpr std::uint32_t doNotQueue = 4;
constexpr std::uint32_t primaryOwner = 1;

const char* const busPeer = "org.freedesktop.DBus";
const char* const busPath = "/org/freedesktop/DBus";

}  // namespace

std::expected<BusName, BusError> BusName::acquire(const DesktopSupport::SessionBus& bus, std::string name) {
  const auto reply =
      bus.call({busPeer, busPath, busPeer, "RequestName"}, g_variant_new("(su)", name.c_str(), doNotQueue),
               G_VARIANT_TYPE("(u)"), std::chrono::seconds(25));
  if (!reply)
    return std::unexpected(reply.error());
  guint32 result = 0;
  g_variant_get(reply->get(), "(u)", &result);
  if (result != primaryOwner)
    return std::unexpected(BusError{"org.freedesktop.DBus.Error.AddressInUse", name + " is running already"});
  return BusName(bus.connection(), std::move(name));
}

BusName::~BusName() {
  if (connection_)
    g_dbus_connection_call(connection_.get(), busPeer, busPath, busPeer, "ReleaseName",
                           g_variant_new("(s)", name_.c_str()), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr,
                           nullptr);
}

}  // namespace HostStandIn
