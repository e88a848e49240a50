#include "Tests/Support/BusNames.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using DesktopSupport::ErrorHandle;
using DesktopSupport::Out;
using DesktopSupport::VariantHandle;

struct Wait {
  bool wanted = false;
  bool over = false;
  bool isLate = false;
};

gboolean beLate(gpointer wait) {
  static_cast<Wait*>(wait)->isLate = true;
  return G_SOURCE_CONTINUE;
}

void await(const std::string& busName, bool owned) {
  Wait wait{owned};
  const auto appeared = [](GDBusConnection*, const gchar*, const gchar*, gpointer data) {
    auto* state = static_cast<Wait*>(data);
    state->over = state->wanted;
  };
  const auto vanished = [](GDBusConnection*, const gchar*, gpointer data) {
    auto* state = static_cast<Wait*>(data);
    state->over = !state->wanted;
  };
  const guint alarm = g_timeout_add(milliseconds(patience), &beLate, &wait);
  const guint watch = g_bus_watch_name(G_BUS_TYPE_SESSION, busName.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE, appeared,
                                       vanished, &wait, nullptr);
  while (!wait.over && !wait.isLate)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  g_bus_unwatch_name(watch);
  g_source_remove(alarm);
  if (!wait.over)
    throw std::runtime_error(busName +
                             (owned ? " has no owner on the session bus" : " still has an owner on the session bus"));
}

/// Calls a method and waits for the answer, which may take as long as a program's start. If there is none, fails the
/// test and returns false.
bool call(const DesktopSupport::BusMethod& method, GVariant* arguments) {
  ErrorHandle error;
  const ObjectHandle<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, Out(error)));
  const VariantHandle answer(g_dbus_connection_call_sync(
      bus.get(), method.destination.c_str(), method.path.c_str(), method.interface.c_str(), method.name.c_str(),
      arguments, nullptr, G_DBUS_CALL_FLAGS_NONE, milliseconds(patience), nullptr, Out(error)));
  if (!answer)
    ADD_FAILURE() << error->message;
  return answer != nullptr;
}

}  // namespace

bool hasOwner(const std::string& busName) {
  const auto bus = DesktopSupport::SessionBus::connect().value();
  const auto answer = bus.call(DesktopSupport::busDaemonMethod("NameHasOwner"), g_variant_new("(s)", busName.c_str()),
                               G_VARIANT_TYPE("(b)"), patience);
  gboolean has = FALSE;
  g_variant_get(answer.value().get(), "(b)", &has);
  return has != FALSE;
}

void awaitOwner(const std::string& busName) {
  await(busName, true);
}

std::vector<std::string> awaitOwners(const std::string& prefix, std::size_t count) {
  const auto bus = DesktopSupport::SessionBus::connect().value();
  const DesktopSupport::BusDaemon daemon(bus, patience);
  // A change of any name wakes the loop.
  const auto changes = bus.subscribe("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                     /*firstArgument=*/"", [](const auto&...) {});
  Wait wait;
  const guint alarm = g_timeout_add(milliseconds(patience), &beLate, &wait);
  std::vector<std::string> names;
  for (;;) {
    names = daemon.names();
    std::erase_if(names, [&](const std::string& name) { return !name.starts_with(prefix); });
    if (names.size() == count || wait.isLate)
      break;
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }
  g_source_remove(alarm);
  if (names.size() != count)
    throw std::runtime_error(std::to_string(names.size()) + " names begin with " + prefix);
  return names;
}

void awaitNoOwner(const std::string& busName) {
  await(busName, false);
}

bool openURL(const std::string& busName, const std::string& url) {
  return call({busName, DesktopSupport::applicationObjectPath(busName), DesktopSupport::applicationInterface, "Open"},
              DesktopSupport::openArguments(url));
}

void setActivationEnvironment(const std::string& variable, const std::string& value) {
  GVariantBuilder environment;
  g_variant_builder_init(&environment, G_VARIANT_TYPE("a{ss}"));
  g_variant_builder_add(&environment, "{ss}", variable.c_str(), value.c_str());
  call(DesktopSupport::busDaemonMethod("UpdateActivationEnvironment"), g_variant_new("(a{ss})", &environment));
}

}  // namespace TestSupport
