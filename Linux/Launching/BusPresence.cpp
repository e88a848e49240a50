#include "Linux/Launching/BusPresence.h"

#include <utility>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Linux/Launching/LaunchCall.h"

namespace Platform::Linux {

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::NodeInfoHandle;

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

}  // namespace

BusPresence::BusPresence(DesktopSupport::SessionBus bus, std::string identifier, GMainContext* context,
                         TakeLaunch takeLaunch)
    : bus_(std::move(bus)),
      identifier_(std::move(identifier)),
      objectPath_(DesktopSupport::applicationObjectPath(identifier_)),
      takeLaunch_(std::move(takeLaunch)) {
  exportObject(context);
}

BusPresence::~BusPresence() {
  if (registration_ != 0)
    g_dbus_connection_unregister_object(bus_.connection(), registration_);
}

void BusPresence::exportObject(GMainContext* context) {
  static constexpr GDBusInterfaceVTable vtable = {&BusPresence::methodCalled, nullptr, nullptr, {}};
  const NodeInfoHandle node(g_dbus_node_info_new_for_xml(introspection, nullptr));
  g_main_context_push_thread_default(context);
  registration_ = g_dbus_connection_register_object(bus_.connection(), objectPath_.c_str(), node->interfaces[0],
                                                    &vtable, this, nullptr, nullptr);
  g_main_context_pop_thread_default(context);
}

bool BusPresence::acquireName() {
  const auto isOwner = BusDaemon(bus_, answerTime).requestName(identifier_);
  mayOwnName_ = isOwner.value_or(true);  // an answer that is late may still be a yes
  return isOwner.value_or(false);
}

bool BusPresence::forward(std::vector<std::string>& launchURLs) const {
  const auto data = [] { return dataWithDeadline(Launch::Clock::now() + beginTime); };
  if (launchURLs.empty())
    return deliver("Activate", DesktopSupport::activateArguments(data()));
  // One by one: an owner that is too busy, or about to go, is so for each.
  while (!launchURLs.empty()) {
    if (!deliver("Open", DesktopSupport::openArguments(launchURLs.front(), data())))
      return false;
    launchURLs.erase(launchURLs.begin());
  }
  return true;
}

bool BusPresence::deliver(const char* method, GVariant* arguments) const {
  return bus_
      .call({identifier_, objectPath_, DesktopSupport::applicationInterface, method}, arguments, nullptr, answerTime)
      .has_value();
}

void BusPresence::releaseName() {
  if (std::exchange(mayOwnName_, false))
    BusDaemon(bus_, answerTime).releaseName(identifier_);
}

void BusPresence::flush() const {
  BusDaemon(bus_, answerTime).synchronize();
}

void BusPresence::methodCalled(GDBusConnection* /*connection*/, const gchar* /*sender*/, const gchar* /*path*/,
                               const gchar* /*interface*/, const gchar* /*method*/, GVariant* /*parameters*/,
                               GDBusMethodInvocation* invocation, gpointer self) {
  for (Launch& launch : launchesOf(invocation))
    static_cast<BusPresence*>(self)->takeLaunch_(std::move(launch));
}

}  // namespace Platform::Linux
