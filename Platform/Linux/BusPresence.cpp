#include "Platform/Linux/BusPresence.h"

#include <chrono>
#include <cstddef>
#include <string_view>
#include <utility>

#include "DesktopSupport/ApplicationBus.h"
#include "DesktopSupport/GLibHandles.h"

namespace Platform::Linux {

namespace {

using DesktopSupport::Activation;
using DesktopSupport::BusMethod;
using DesktopSupport::NodeInfoHandle;
using DesktopSupport::VariantHandle;

constexpr std::chrono::seconds answerTime{25};

constexpr const char* introspection =
    "<node>"
    "  <interface name='org.freedesktop.Application'>"
    "    <method name='Activate'><arg type='a{sv}' direction='in'/></method>"
    "    <method name='Open'><arg type='as' direction='in'/><arg type='a{sv}' direction='in'/></method>"
    "    <method name='ActivateAction'>"
    "      <arg type='s' direction='in'/><arg type='av' direction='in'/><arg type='a{sv}' direction='in'/>"
    "    </method>"
    "  </interface>"
    "</node>";

BusMethod busMethod(const char* name) {
  return {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", name};
}

}  // namespace

BusPresence::BusPresence(DesktopSupport::SessionBus bus, std::string identifier, Handlers handlers)
    : bus_(std::move(bus)),
      identifier_(std::move(identifier)),
      objectPath_(DesktopSupport::applicationObjectPath(identifier_)),
      handlers_(std::move(handlers)) {
  exportObject();
}

BusPresence::~BusPresence() {
  if (registration_ != 0)
    g_dbus_connection_unregister_object(bus_.connection(), registration_);
}

void BusPresence::exportObject() {
  static constexpr GDBusInterfaceVTable vtable = {&BusPresence::methodCalled, nullptr, nullptr, {}};
  const NodeInfoHandle node(g_dbus_node_info_new_for_xml(introspection, nullptr));
  registration_ = g_dbus_connection_register_object(bus_.connection(), objectPath_.c_str(), node->interfaces[0],
                                                    &vtable, this, nullptr, nullptr);
}

bool BusPresence::acquireName() {
  constexpr guint32 doNotQueue = 4;
  constexpr guint32 primaryOwner = 1;
  const auto reply = bus_.call(busMethod("RequestName"), g_variant_new("(su)", identifier_.c_str(), doNotQueue),
                               G_VARIANT_TYPE("(u)"), answerTime);
  if (!reply)
    return false;
  guint32 answer = 0;
  g_variant_get(reply->get(), "(u)", &answer);
  ownsName_ = answer == primaryOwner;
  return ownsName_;
}

bool BusPresence::send(std::vector<std::string>& launchURLs, Activation activation) const {
  if (launchURLs.empty())
    return deliver("Activate", DesktopSupport::activateArguments(), activation);
  while (!launchURLs.empty()) {
    const auto end = launchURLs.begin() + static_cast<std::ptrdiff_t>(DesktopSupport::urlsInOneOpen(launchURLs));
    if (!deliver("Open", DesktopSupport::openArguments({launchURLs.begin(), end}), activation))
      return false;
    launchURLs.erase(launchURLs.begin(), end);
  }
  return true;
}

bool BusPresence::deliver(const char* method, GVariant* arguments, Activation activation) const {
  const auto answer = bus_.call({identifier_, objectPath_, DesktopSupport::applicationInterface, method}, arguments,
                                nullptr, answerTime, activation);
  // An owner that is too busy to answer has the message all the same; sent again, it would be handled twice.
  return answer || answer.error().name == DesktopSupport::BusErrorName::timeout;
}

void BusPresence::releaseName() {
  if (!std::exchange(ownsName_, false))
    return;
  // The bus answers this behind everything that it has sent to the name, so all of that is queued here by then.
  [[maybe_unused]] const auto answer =
      bus_.call(busMethod("ReleaseName"), g_variant_new("(s)", identifier_.c_str()), nullptr, answerTime);
  while (g_main_context_iteration(nullptr, /*may_block=*/FALSE)) {
  }
  g_dbus_connection_flush_sync(bus_.connection(), nullptr, nullptr);
}

void BusPresence::methodCalled(GDBusConnection* /*connection*/, const gchar* /*sender*/, const gchar* /*path*/,
                               const gchar* /*interface*/, const gchar* method, GVariant* parameters,
                               GDBusMethodInvocation* invocation, gpointer self) {
  // Answered first: the caller waits for the delivery, not for what comes of it.
  g_dbus_method_invocation_return_value(invocation, nullptr);
  static_cast<BusPresence*>(self)->handleCall(method, parameters);
}

void BusPresence::handleCall(const char* method, GVariant* parameters) {
  if (std::string_view(method) != "Open")
    return handlers_.activate();
  const VariantHandle uris(g_variant_get_child_value(parameters, 0));
  GVariantIter iterator;
  g_variant_iter_init(&iterator, uris.get());
  const gchar* uri = nullptr;
  while (g_variant_iter_next(&iterator, "&s", &uri))
    handlers_.open(uri);
}

}  // namespace Platform::Linux
