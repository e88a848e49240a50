#include "HostStandIn/Host.h"

#include <iostream>
#include <limits>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"

namespace HostStandIn {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;

std::expected<std::unique_ptr<Host>, std::string> Host::create(const Options& options) {
  const auto bus = SessionBus::connect();
  if (!bus)
    return std::unexpected(bus.error().message);
  std::unique_ptr<Host> host(new Host(options, bus->connection()));
  if (const auto opened = host->openLog(options); !opened)
    return std::unexpected(opened.error());
  if (const auto served = host->serve(*bus); !served)
    return std::unexpected(served.error().message);
  return host;
}

Host::Host(const Options& options, GDBusConnection* connection)
    : output_(options.decode ? Output::Format::table : Output::Format::url, std::cout, std::cerr),
      commands_(options.setup),
      enough_(options.exitAfter.value_or(std::numeric_limits<std::size_t>::max())),
      loop_(g_main_loop_new(nullptr, FALSE)),
      connection_(DesktopSupport::shared(connection)),
      closedHandler_(g_signal_connect(connection, "closed", G_CALLBACK(handleClosed), this)) {}

Host::~Host() {
  g_signal_handler_disconnect(connection_.get(), closedHandler_);
}

std::expected<void, std::string> Host::openLog(const Options& options) {
  if (!options.log)
    return {};
  return output_.logTo(*options.log);
}

// Takes the name last, so that whoever sees it on the bus finds the interfaces too.
std::expected<void, BusError> Host::serve(const SessionBus& bus) {
  auto application = ApplicationInterface::create(bus, [this](const std::string& url) { receive(url); });
  if (!application)
    return std::unexpected(application.error());
  auto scripting = ScriptingInterface::create(bus, commands_, [this] { output_.printLine("install plugin"); });
  if (!scripting)
    return std::unexpected(scripting.error());
  auto name = BusName::acquire(bus, "com.quillary.Deskloom");
  if (!name)
    return std::unexpected(name.error());
  application_ = std::move(*application);
  scripting_ = std::move(*scripting);
  name_ = std::move(*name);
  return {};
}

std::expected<void, std::string> Host::run() {
  g_main_loop_run(loop_.get());
  if (g_dbus_connection_is_closed(connection_.get()) != FALSE)
    return std::unexpected("the session bus closed the connection");
  // The sender of the last URL still needs its answer.
  g_dbus_connection_flush_sync(connection_.get(), nullptr, nullptr);
  return {};
}

void Host::receive(const std::string& url) {
  output_.printURL(url);
  ++received_;
  if (received_ >= enough_)
    g_main_loop_quit(loop_.get());
}

void Host::handleClosed(GDBusConnection* /*connection*/, gboolean /*remotely*/, GError* /*error*/, gpointer self) {
  g_main_loop_quit(static_cast<Host*>(self)->loop_.get());
}

}  // namespace HostStandIn
