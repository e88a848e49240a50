#include "BrowserSessions/GNOMEWeb/RunningGNOMEWeb.h"

#include <chrono>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/SearchPath.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

// The profile of a GNOME Web in this sandbox, or in none if the sandbox is "".
struct Location {
  const char* sandbox;
  path GNOMEWebHome::* base;
  const char* folder;
};

constexpr Location locations[] = {
    {"", &GNOMEWebHome::data, "epiphany"},
    {"org.gnome.Epiphany", &GNOMEWebHome::home, ".var/app/org.gnome.Epiphany/data/epiphany"},
};

constexpr std::chrono::seconds busTimeout(2);

std::optional<pid_t> owner(const char* busName) {
  const auto bus = DesktopSupport::SessionBus::connect();
  if (!bus)
    return std::nullopt;
  const DesktopSupport::BusMethod ask = {.destination = "org.freedesktop.DBus",
                                         .path = "/org/freedesktop/DBus",
                                         .interface = "org.freedesktop.DBus",
                                         .name = "GetConnectionUnixProcessID"};
  const auto reply = bus->call(ask, g_variant_new("(s)", busName), G_VARIANT_TYPE("(u)"), busTimeout);
  if (!reply)
    return std::nullopt;
  guint32 process = 0;
  g_variant_get(reply->get(), "(u)", &process);
  return static_cast<pid_t>(process);
}

}  // namespace

GNOMEWebHome GNOMEWebHome::ofUser() {
  const path home = g_get_home_dir();
  const path data = DesktopSupport::environmentOr("XDG_DATA_HOME", "");
  return {.home = home, .data = data.is_absolute() ? data : home / ".local/share"};
}

std::optional<path> gnomeWebProfile(const DesktopSupport::ProcessInfo& process, const GNOMEWebHome& home) {
  const std::string sandbox = process.flatpakId().value_or("");
  for (const Location& location : locations)
    if (sandbox == location.sandbox)
      return home.*location.base / location.folder;
  return std::nullopt;
}

std::optional<RunningGNOMEWeb> runningGNOMEWeb(const GNOMEWebHome& home) {
  const DesktopSupport::ProcessInfo process(owner(gnomeWebBusName));
  auto profile = process.pid() ? gnomeWebProfile(process, home) : std::nullopt;
  if (!profile)
    return std::nullopt;
  return RunningGNOMEWeb{.profile = *std::move(profile), .process = process.flatpakId() ? std::nullopt : process.pid()};
}

}  // namespace BrowserSessions
