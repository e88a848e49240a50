#include "BrowserSessions/GNOMEWeb/RunningWeb.h"

#include <chrono>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/SearchPath.h"

namespace BrowserSessions {

namespace {

using std::filesystem::path;

// A location is a row: where GNOME Web has its profile when it runs in this sandbox, "" being none.
struct Location {
  const char* sandbox;
  path WebHome::* base;
  const char* folder;
};

constexpr Location locations[] = {
    {"", &WebHome::data, "epiphany"},
    {"org.gnome.Epiphany", &WebHome::home, ".var/app/org.gnome.Epiphany/data/epiphany"},
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

WebHome WebHome::ofUser() {
  const path home = g_get_home_dir();
  const path data = DesktopSupport::environmentOr("XDG_DATA_HOME", "");
  return {.home = home, .data = data.is_absolute() ? data : home / ".local/share"};
}

std::optional<path> webProfile(const DesktopSupport::ProcessInfo& process, const WebHome& home) {
  const std::string sandbox = process.flatpakId().value_or("");
  for (const Location& location : locations)
    if (sandbox == location.sandbox)
      return home.*location.base / location.folder;
  return std::nullopt;
}

std::optional<RunningWeb> runningWeb(const WebHome& home) {
  const DesktopSupport::ProcessInfo process(owner(webBusName));
  auto profile = process.pid() ? webProfile(process, home) : std::nullopt;
  if (!profile)
    return std::nullopt;
  return RunningWeb{.profile = *std::move(profile), .process = process.flatpakId() ? std::nullopt : process.pid()};
}

}  // namespace BrowserSessions
