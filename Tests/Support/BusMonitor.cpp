#include "Tests/Support/BusMonitor.h"

#include <cstdlib>
#include <stdexcept>

#include "Tests/Support/Patience.h"

namespace TestSupport {

using DesktopSupport::ErrorHandle;
using DesktopSupport::Out;
using DesktopSupport::VariantHandle;

BusMonitor::BusMonitor(const std::string& rule) {
  ErrorHandle error;
  connection_.reset(g_dbus_connection_new_for_address_sync(
      std::getenv("DBUS_SESSION_BUS_ADDRESS"),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, Out(error)));
  if (!connection_)
    throw std::runtime_error(error->message);
  const gchar* const rules[] = {rule.c_str(), nullptr};
  const VariantHandle answer(g_dbus_connection_call_sync(
      connection_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.Monitoring",
      "BecomeMonitor", g_variant_new("(^asu)", rules, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, Out(error)));
  if (!answer)
    throw std::runtime_error(error->message);
  ownName_ = g_dbus_connection_get_unique_name(connection_.get());
  filter_ = g_dbus_connection_add_filter(connection_.get(), &BusMonitor::note, this, nullptr);
}

BusMonitor::~BusMonitor() {
  g_dbus_connection_close_sync(connection_.get(), nullptr, nullptr);
  g_dbus_connection_remove_filter(connection_.get(), filter_);
}

int BusMonitor::await(int count) {
  std::unique_lock lock(mutex_);
  if (!changed_.wait_for(lock, patience, [&] { return count_ >= count; }))
    throw std::runtime_error("the bus has passed on only " + std::to_string(count_) + " messages");
  return count_;
}

/// Keeps the messages from GIO, which would answer calls that are for others.
GDBusMessage* BusMonitor::note(GDBusConnection* /*connection*/, GDBusMessage* message, gboolean isIncoming,
                               gpointer self) {
  auto& monitor = *static_cast<BusMonitor*>(self);
  if (isIncoming == FALSE)
    return message;
  const bool isOwn = monitor.ownName_ == g_dbus_message_get_destination(message);
  g_object_unref(message);
  if (isOwn)
    return nullptr;
  const std::lock_guard lock(monitor.mutex_);
  ++monitor.count_;
  monitor.changed_.notify_all();
  return nullptr;
}

}  // namespace TestSupport
