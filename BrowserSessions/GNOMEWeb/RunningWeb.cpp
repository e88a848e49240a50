#include "BrowserSessions/GNOMEWeb/RunningWeb.h"

#include <chrono>
#include <string>
#include <utility>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/UserFolders.h"

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
  return bus ? DesktopSupport::BusDaemon(*bus, busTimeout).processOf(busName) : std::nullopt;
}

}  // namespace

WebHome WebHome::ofUser() {
  return {.home = DesktopSupport::homeFolder(), .data = DesktopSupport::userDataFolder()};
}

std::optional<path> webProfile(const DesktopSupport::ProcessInfo& process, const WebHome& home) {
  const std::string sandbox = process.flatpakID().value_or("");
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
  return RunningWeb{.profile = *std::move(profile), .process = process.flatpakID() ? std::nullopt : process.pid()};
}

}  // namespace BrowserSessions
