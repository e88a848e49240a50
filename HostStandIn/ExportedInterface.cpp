#include "HostStandIn/ExportedInterface.h"

namespace HostStandIn {

using DesktopSupport::ErrorHandle;
using DesktopSupport::NodeInfoHandle;
using DesktopSupport::Out;

std::expected<std::unique_ptr<ExportedInterface>, DesktopSupport::BusError> ExportedInterface::create(
    const DesktopSupport::SessionBus& bus, const std::string& path, const std::string& description, Handler handler) {
  static constexpr GDBusInterfaceVTable table{handleCall, nullptr, nullptr, {}};
  std::unique_ptr<ExportedInterface> exported(new ExportedInterface(bus.connection(), std::move(handler)));

  ErrorHandle error;
  const NodeInfoHandle node(g_dbus_node_info_new_for_xml(description.c_str(), Out(error)));
  if (!node)
    return std::unexpected(DesktopSupport::busErrorFrom(*error));
  exported->registration_ = g_dbus_connection_register_object(bus.connection(), path.c_str(), *node->interfaces, &table,
                                                              exported.get(), nullptr, Out(error));
  if (exported->registration_ == 0)
    return std::unexpected(DesktopSupport::busErrorFrom(*error));
  return exported;
}

ExportedInterface::~ExportedInterface() {
  if (registration_ != 0)
    g_dbus_connection_unregister_object(connection_.get(), registration_);
}

void ExportedInterface::handleCall(GDBusConnection* /*connection*/, const gchar* /*sender*/, const gchar* /*path*/,
                                   const gchar* /*interface*/, const gchar* method, GVariant* arguments,
                                   GDBusMethodInvocation* invocation, gpointer self) {
  Answer answer = static_cast<ExportedInterface*>(self)->handler_(method, arguments);
  if (const auto& reply = answer.reply)
    g_dbus_method_invocation_return_value(invocation, reply->get());
  else
    g_dbus_method_invocation_return_dbus_error(invocation, reply.error().name.c_str(), reply.error().message.c_str());
  if (answer.afterwards)
    answer.afterwards();
}

}  // namespace HostStandIn
