#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <unistd.h>

#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/FakeWindowManager.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestXServer.h"

namespace Soak {

namespace {

constexpr const char* launchURL = "deskloomplugin://runCommand/apps";

/// The X server of the scenario, with one application on it. Every process launched from now on uses it.
class Screen {
 public:
  Screen() {
    TestSupport::setActivationEnvironment("DISPLAY", std::getenv("DISPLAY"));
    desktop_.setText(window_, "WM_CLASS", std::string("soak\0Soak\0", 10), "STRING");
    desktop_.setNumbers(window_, "_NET_WM_PID", {static_cast<std::uint32_t>(getpid())}, "CARDINAL");
    manager_.list({window_});
  }

  /// Stops the server for this time.
  void stopFor(std::chrono::seconds time) const {
    kill(server_.pid(), SIGSTOP);
    std::this_thread::sleep_for(time);
    kill(server_.pid(), SIGCONT);
  }

 private:
  TestSupport::TestXServer server_;
  TestSupport::TestDesktop desktop_;
  TestSupport::FakeWindowManager manager_{desktop_};
  xcb_window_t window_ = desktop_.makeWindow();
};

}  // namespace

Report stopped(const Settings& settings) {
  constexpr std::chrono::seconds timeStopped{5};
  const Screen screen;
  const Plan plan = {.plugin = gleanery,
                     .count = settings.launches.value_or(1000),
                     .atATime = 20,
                     .url = [](int) { return launchURL; },
                     .time = std::chrono::seconds(60),
                     .halfway = [&] { screen.stopFor(timeStopped); }};
  Report report;
  Hosts hosts;
  Process({gleanery.program, launchURL}).wait();
  const auto before = hosts.received();
  const auto made = carryOut(plan);
  const std::size_t left = awaitEndOf(gleanery.program, timeToEnd);
  const auto received = hosts.received();
  reportLaunches(report, plan, made);
  report.demandNone(left, "processes are left");
  report.demand(before.size() == 1 && before.front().find("soak") != std::string::npos, "the window was never listed");
  const auto same = before.empty() ? 0 : std::ranges::count(received, before.front()) - 1;
  report.figures() << ", " << same << " with the window";
  report.demand(received.size() - before.size() == made.acknowledged() &&
                    same == static_cast<std::ptrdiff_t>(made.acknowledged()),
                std::to_string(received.size() - before.size()) + " arrived");
  return report;
}

}  // namespace Soak
