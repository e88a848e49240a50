#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include <glib.h>
#include <unistd.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "Linux/Launching/LaunchArguments.h"
#include "Linux/Launching/LaunchQueue.h"
#include "Linux/Launching/LaunchService.h"
#include "Linux/Launching/Signals.h"
#include "Linux/Services.h"
#include "Platform/Application.h"

namespace Platform {

namespace {

using Linux::LaunchArguments;
using Linux::LaunchQueue;
using Linux::LaunchService;

constexpr const char* usage =
    "Usage: %s [OPTION]… [LAUNCH-URL]…\n"
    "\n"
    "A plug-in that its host starts with a launch URL, such as\n"
    "deskloomplugin://runCommand/apps\n"
    "\n"
    "  --dbus-activated    wait for the bus to deliver the launch URL\n"
    "  --read-launch-urls  read more launch URLs from standard input, each ended by a NUL,\n"
    "                      and give none of them to another process\n"
    "  --help              show this text\n"
    "  --version           show the version\n";

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

/// Adds the launch URLs from standard input, or exits.
void readLaunchURLsOrExit(LaunchArguments& launch, const char* program) {
  auto more = Linux::readLaunchURLs(STDIN_FILENO);
  if (!more) {
    std::fprintf(stderr, "%s: the launch URLs cannot be read: %s\n", program, std::strerror(more.error()));
    std::exit(2);
  }
  std::ranges::move(*more, std::back_inserter(launch.launchURLs));
}

/// The application's name on the bus; `nullopt` if it has no identifier or one that cannot be a name.
std::optional<std::string> nameOnBus(Linux::Services& desktop) {
  auto identifier = desktop.bundle.identifier();
  if (identifier && !DesktopSupport::isApplicationName(*identifier)) {
    desktop.log.write("the bundle identifier " + *identifier + " cannot be a name on the bus");
    return std::nullopt;
  }
  return identifier;
}

/// Whether another process of this application does what this one was started for. The launch URLs that it has taken
/// are removed from the arguments.
bool isDoneElsewhere(LaunchService& service, const std::string& name, LaunchArguments& launch) {
  auto bus = DesktopSupport::SessionBus::connect();
  if (!bus || service.acquireName(std::move(*bus), name))
    return false;
  // The bus delivers to the process that has the name.
  return launch.activatedByBus || service.forward(launch.launchURLs);
}

/// Calls `work` from the main context.
void onMainThread(std::function<void()> work) {
  using Work = std::function<void()>;
  g_idle_add_full(
      G_PRIORITY_DEFAULT,
      [](gpointer given) -> gboolean {
        (*static_cast<Work*>(given))();
        return G_SOURCE_REMOVE;
      },
      new Work(std::move(work)), [](gpointer given) { delete static_cast<Work*>(given); });
}

void runApplication(Linux::Services& desktop, LaunchQueue& launches, LaunchService& service, bool awaitsLaunch) {
  desktop.application.deliver(launches);
  if (awaitsLaunch)
    desktop.application.awaitLaunch();
  desktop.application.run();
  service.releaseName();
  desktop.application.postWillTerminate();
  // After the settings are written, as a fresh process may read them.
  service.passOnAll();
  desktop.workspace.finishHandOvers();
}

}  // namespace

int applicationMain(int argumentCount, char** arguments, const MakeApplicationDelegate& makeDelegate) {
  LaunchArguments launch = parseOrExit(argumentCount, arguments);
  Linux::Services desktop;
  if (launch.version) {
    const std::string version = desktop.bundle.information("Version").value_or("unknown");
    std::printf("%s\n", DesktopSupport::printable(version).c_str());
    return 0;
  }
  if (launch.readsLaunchURLs)
    readLaunchURLsOrExit(launch, arguments[0]);

  // Before the process takes the name, so that a signal can't lose launches that were sent to it.
  const Linux::TerminationSignals signals([&] { desktop.application.terminate(); });
  LaunchQueue launches;
  LaunchService service(launches, [&] { onMainThread([&] { desktop.application.deliver(launches); }); }, desktop.log);
  const auto name = nameOnBus(desktop);
  if (name && launch.readsLaunchURLs)
    service.acquireNameLater(*name);
  else if (name && isDoneElsewhere(service, *name, launch))
    return 0;
  for (std::string& url : launch.launchURLs)
    launches.add({.url = std::move(url)});
  service.start();

  const auto delegate = makeDelegate();
  const auto observation = desktop.notifications.addObserver(
      applicationDidFinishLaunchingNotification, nullptr,
      [&](const Notification& notification) { delegate->applicationDidFinishLaunching(notification); });
  runApplication(desktop, launches, service, launch.activatedByBus);
  desktop.notifications.removeObserver(observation);
  return 0;
}

}  // namespace Platform
