#include "BrowserSessions/GNOMEWeb/RunningGNOMEWeb.h"

#include <chrono>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/UserFolders.h"

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
  return bus ? DesktopSupport::BusDaemon(*bus, busTimeout).processOf(busName) : std::nullopt;
}

}  // namespace

GNOMEWebHome GNOMEWebHome::ofUser() {
  return {.home = DesktopSupport::homeFolder(), .data = DesktopSupport::userDataFolder()};
}

std::optional<path> gnomeWebProfile(const DesktopSupport::ProcessInfo& process, const GNOMEWebHome& home) {
  const std::string sandbox = process.flatpakID().value_or("");
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
  return RunningGNOMEWeb{.profile = *std::move(profile), .process = process.flatpakID() ? std::nullopt : process.pid()};
}

}  // namespace BrowserSessions
