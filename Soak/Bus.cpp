#include "Soak/Bus.h"

#include <stdexcept>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "Tests/Support/GIOHandles.h"

namespace Soak {

using namespace DesktopSupport;

Bus::Bus() {
  ErrorHandle error;
  const CharsHandle address(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, Out(error)));
  if (address)
    connection_.reset(g_dbus_connection_new_for_address_sync(
        address.get(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, Out(error)));
  if (!connection_)
    throw std::runtime_error(error->message);
}

std::optional<BusError> Bus::open(const std::string& busName, const std::string& url,
                                  std::chrono::milliseconds time) const {
  ErrorHandle error;
  const VariantHandle answer(g_dbus_connection_call_sync(
      connection(), busName.c_str(), applicationObjectPath(busName).c_str(), applicationInterface, "Open",
      openArguments({url}), nullptr, G_DBUS_CALL_FLAGS_NONE, static_cast<int>(time.count()), nullptr, Out(error)));
  if (answer)
    return std::nullopt;
  const CharsHandle name(g_dbus_error_encode_gerror(error.get()));
  return BusError{.name = name.get(), .message = error->message};
}

std::optional<pid_t> Bus::ownerOf(const std::string& busName) const {
  const VariantHandle answer(g_dbus_connection_call_sync(connection(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                         "org.freedesktop.DBus", "GetConnectionUnixProcessID",
                                                         g_variant_new("(s)", busName.c_str()), G_VARIANT_TYPE("(u)"),
                                                         G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  if (!answer)
    return std::nullopt;
  guint32 process = 0;
  g_variant_get(answer.get(), "(u)", &process);
  return static_cast<pid_t>(process);
}

}  // namespace Soak
