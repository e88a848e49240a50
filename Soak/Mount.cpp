#include <optional>

#include "Soak/Host.h"
#include "Soak/Process.h"
#include "Soak/Scenarios.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"

namespace Soak {

namespace {

/// A file manager that shows a folder in a window.
class FileManager {
 public:
  explicit FileManager(const std::filesystem::path& folder)
      : service_("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", R"(
          <node>
            <interface name="org.freedesktop.DBus.Properties">
              <method name="GetAll"><arg type="s"/><arg type="a{sv}" direction="out"/></method>
            </interface>
          </node>)") {
    service_.answer("GetAll", "({'OpenWindowsWithLocations': <{'/1': ['file://" + folder.string() + "']}>},)");
  }

 private:
  TestSupport::FakeService service_;
};

}  // namespace

Report mount(const Settings& settings) {
  const Plan plan = {.plugin = gleanery,
                     .count = settings.launches.value_or(1000),
                     .atATime = 20,
                     .url = [](int) { return "deskloomplugin://runCommand/apps"; },
                     .time = std::chrono::seconds(40)};
  constexpr std::chrono::seconds timeToAsk{10};
  Report report;
  const TestSupport::TemporaryFolder folder;
  std::optional<TestSupport::DeadMount> mount(folder.path());
  const FileManager fileManager(folder.path() / "documents");
  Process waiting({gleanery.program, "deskloomplugin://runCommand/finder"});
  const bool waits = mount->awaitRequest(timeToAsk);
  report.demand(waits || waiting.endsWithin(timeToAsk), "no process read the folder");

  const auto made = carryOut(plan);
  static_cast<void>(awaitEndOf(gleanery.program, timeToEnd, waiting.pid()));
  const std::size_t received = Hosts().received().size();
  reportLaunches(report, plan, made);
  report.figures() << " while one " << (waits ? "waits" : "does not wait") << " for a folder";
  report.demand(received >= made.acknowledged(), std::to_string(made.acknowledged() - received) + " lost");
  report.demand(received <= made.acknowledged() + 1, std::to_string(received - made.acknowledged()) + " too many");
  mount.reset();
  report.demand(waiting.endsWithin(timeToEnd), "the waiting launch never ends");
  return report;
}

}  // namespace Soak
