#include "Tests/Support/ScreenReader.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>

#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using namespace DesktopSupport;

std::string accessibilityBusAddress() {
  ErrorHandle error;
  const ObjectHandle<GDBusConnection> sessionBus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, Out(error)));
  if (!sessionBus)
    throw std::runtime_error("no session bus: these tests run under script/desktop");
  const VariantHandle reply(g_dbus_connection_call_sync(sessionBus.get(), "org.a11y.Bus", "/org/a11y/bus",
                                                        "org.a11y.Bus", "GetAddress", nullptr, G_VARIANT_TYPE("(s)"),
                                                        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, Out(error)));
  if (!reply)
    throw std::runtime_error(error->message);
  const char* address = nullptr;
  g_variant_get(reply.get(), "(&s)", &address);
  return address;
}

ObjectHandle<GDBusConnection> connectTo(const std::string& address) {
  constexpr auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                           G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  ErrorHandle error;
  ObjectHandle<GDBusConnection> bus(
      g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, Out(error)));
  if (!bus)
    throw std::runtime_error(error->message);
  return bus;
}

/// Announces a screen reader, without which some programs don't report their windows.
void askForEvents(GDBusConnection* bus) {
  for (const char* event : {"object:", "window:"})
    VariantHandle(g_dbus_connection_call_sync(bus, "org.a11y.atspi.Registry", "/org/a11y/atspi/registry",
                                              "org.a11y.atspi.Registry", "RegisterEvent",
                                              g_variant_new("(sass)", event, nullptr, ""), nullptr,
                                              G_DBUS_CALL_FLAGS_NONE, milliseconds(patience), nullptr, nullptr));
}

void ignoreSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant*, gpointer) {}

}  // namespace

ScreenReader::ScreenReader() : context_(g_main_context_new()) {
  subscribe();
  askForEvents(bus_.get());
}

void ScreenReader::subscribe() {
  // Signals arrive in the context that is the thread's default when they are subscribed to.
  g_main_context_push_thread_default(context_.get());
  bus_ = connectTo(accessibilityBusAddress());
  subscription_ = g_dbus_connection_signal_subscribe(bus_.get(), nullptr, nullptr, nullptr, nullptr, nullptr,
                                                     G_DBUS_SIGNAL_FLAGS_NONE, ignoreSignal, nullptr, nullptr);
  g_main_context_pop_thread_default(context_.get());
}

ScreenReader::~ScreenReader() {
  g_dbus_connection_signal_unsubscribe(bus_.get(), subscription_);
}

std::vector<AccessibleObject> ScreenReader::windows(std::optional<pid_t> process) const {
  const AccessibleObject registry(bus_.get(), "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root");
  std::vector<AccessibleObject> windows;
  for (const AccessibleObject& application : registry.children())
    if (!process || application.process() == *process)
      std::ranges::move(application.children(), std::back_inserter(windows));
  return windows;
}

std::optional<AccessibleObject> ScreenReader::awaitWindow(std::optional<pid_t> process) const {
  std::optional<AccessibleObject> window;
  static_cast<void>(waitUntil([&] {
    const auto all = windows(process);
    if (!all.empty())
      window.emplace(all.front());
    return window.has_value();
  }));
  return window;
}

bool ScreenReader::waitUntil(const std::function<bool()>& condition) const {
  bool isLate = false;
  const auto beLate = [](gpointer late) -> gboolean {
    *static_cast<bool*>(late) = true;
    return G_SOURCE_REMOVE;
  };
  const SourceHandle alarm(g_timeout_source_new(milliseconds(patience)));
  g_source_set_callback(alarm.get(), beLate, &isLate, nullptr);
  g_source_attach(alarm.get(), context_.get());

  bool holds = condition();
  while (!holds && !isLate) {
    g_main_context_iteration(context_.get(), /*may_block=*/TRUE);
    holds = condition();
  }
  g_source_destroy(alarm.get());
  return holds;
}

}  // namespace TestSupport
