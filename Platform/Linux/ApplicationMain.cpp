#include "Platform/ApplicationMain.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "DesktopSupport/ApplicationBus.h"
#include "DesktopSupport/DisplayableText.h"
#include "DesktopSupport/SessionBus.h"
#include "Platform/Linux/BusPresence.h"
#include "Platform/Linux/DetachedProcess.h"
#include "Platform/Linux/LaunchArguments.h"
#include "Platform/Linux/LinuxServices.h"
#include "Platform/Linux/TerminationSignals.h"

namespace Platform {

namespace {

using Linux::BusPresence;
using Linux::LaunchArguments;
using Linux::LinuxServices;

constexpr const char* usage =
    "Usage: %s [OPTION]… [LAUNCH-URL]…\n"
    "\n"
    "A plug-in that its host starts with a launch URL, such as\n"
    "deskloomplugin://runCommand/apps\n"
    "\n"
    "  --dbus-activated  wait for the bus to deliver the launch URL\n"
    "  --help            show this text\n"
    "  --version         show the version\n";

/// How often a process that finds its name taken, and then its owner gone, tries again.
constexpr int attempts = 100;

LaunchArguments parseOrExit(int argumentCount, char** arguments) {
  auto parsed = LaunchArguments::parse({arguments + 1, arguments + argumentCount});
  if (!parsed) {
    std::fprintf(stderr, "%s: %s\n", arguments[0], DesktopSupport::printable(parsed.error()).c_str());
    std::exit(2);
  }
  if (parsed->help) {
    std::printf(usage, arguments[0]);
    std::exit(0);
  }
  return *parsed;
}

/// The application's place on the bus. Null without a session bus, or if the bundle has no identifier that can be a
/// name on the bus.
std::unique_ptr<BusPresence> busPresence(LinuxServices& desktop) {
  const auto identifier = desktop.bundle.identifier();
  if (!identifier)
    return nullptr;
  if (!DesktopSupport::isApplicationName(*identifier)) {
    desktop.log.write("the bundle identifier " + *identifier + " cannot be a name on the bus");
    return nullptr;
  }
  auto bus = DesktopSupport::SessionBus::connect();
  if (!bus)
    return nullptr;
  return std::make_unique<BusPresence>(
      std::move(*bus), *identifier,
      BusPresence::Handlers{.open = [&](std::string url) { desktop.application.deliver(std::move(url)); },
                            .activate = [&] { desktop.application.activate(); }});
}

/// Whether another process of this application has taken over what this one was started for. An owner of the name that
/// is just leaving takes nothing more: then the name is free, or soon another's. The launch URLs that it has taken are
/// no longer among the arguments.
bool handedToRunningProcess(BusPresence& presence, LaunchArguments& arguments) {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (presence.acquireName())
      return false;
    if (arguments.activatedByBus || presence.forward(arguments.launchURLs))
      return true;
  }
  return false;
}

/// Has a fresh process handle the launch URLs that came when this one was about to end: started by the bus, or, if that
/// can't, from this process's own executable.
void handToFreshProcess(std::vector<std::string> launchURLs, const BusPresence* presence, Log& log) {
  if (launchURLs.empty())
    return;
  if (presence != nullptr && presence->forwardStarting(launchURLs))
    return;
  launchURLs.insert(launchURLs.begin(), "--");
  if (const int problem = Linux::startDetached("/proc/self/exe", std::move(launchURLs)))
    log.write("launch URLs were lost: no process could be started for them: " + std::string(std::strerror(problem)));
}

void runApplication(LinuxServices& desktop, BusPresence* presence, const LaunchArguments& arguments) {
  const Linux::TerminationSignals signals([&] { desktop.application.terminate(); });
  for (const std::string& url : arguments.launchURLs)
    desktop.application.deliver(url);
  if (arguments.activatedByBus && presence != nullptr)
    desktop.application.awaitActivation();
  desktop.application.run();
  if (presence != nullptr)
    presence->releaseName();
  desktop.application.postWillTerminate();
  // Not before the settings are written: the fresh process may read them.
  handToFreshProcess(desktop.application.takeUndelivered(), presence, desktop.log);
  desktop.workspace.finishHandOvers();
}

}  // namespace

int applicationMain(int argumentCount, char** arguments, const MakeApplicationDelegate& makeDelegate) {
  LaunchArguments launch = parseOrExit(argumentCount, arguments);
  LinuxServices desktop;
  if (launch.version) {
    const std::string version = desktop.bundle.information("Version").value_or("unknown");
    std::printf("%s\n", DesktopSupport::printable(version).c_str());
    return 0;
  }

  const auto presence = busPresence(desktop);
  if (presence && handedToRunningProcess(*presence, launch))
    return 0;
  const auto delegate = makeDelegate();
  const auto observation = desktop.notifications.addObserver(
      applicationDidFinishLaunchingNotification, nullptr,
      [&](const Notification& notification) { delegate->applicationDidFinishLaunching(notification); });
  runApplication(desktop, presence.get(), launch);
  desktop.notifications.removeObserver(observation);
  return 0;
}

}  // namespace Platform
