// What arrives, and how often: hundreds of launch URLs, invalid ones, and payloads of megabytes.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "DesktopSupport/System/FileDescriptor.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"

using testing::HasSubstr;
using testing::IsEmpty;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;

namespace {

constexpr const char* pluginName = "com.quillary.Gleanery";
constexpr const char* emptyListCommand = "deskloom://gleanery/%5B%5D";

/// Runs the shell command 200 times, eight at a time.
int runTwoHundredTimes(const std::string& command) {
  return TestSupport::run({"sh", "-c", "seq 200 | xargs -P 8 -I N " + command + " >/dev/null"});
}

/// The plug-in's processes on this desktop.
std::vector<pid_t> pluginProcesses() {
  const std::string desktop = std::string("DESKLOOM_DESKTOP_ID=") + std::getenv("DESKLOOM_DESKTOP_ID");
  std::vector<pid_t> processes;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    std::error_code ignored;
    if (std::filesystem::read_symlink(entry.path() / "exe", ignored) != std::filesystem::canonical(GLEANERY_PROGRAM))
      continue;
    std::ifstream file(entry.path() / "environ");
    const std::string environment(std::istreambuf_iterator<char>(file), {});
    if (environment.find(desktop + '\0') != std::string::npos)
      processes.push_back(std::stoi(entry.path().filename()));
  }
  return processes;
}

/// Waits until all of them have ended. One that leaves launch URLs to another does not end before that one has them.
void awaitEndOfPlugins() {
  for (auto processes = pluginProcesses(); !processes.empty(); processes = pluginProcesses()) {
    for (const pid_t process : processes) {
      const DesktopSupport::FileDescriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
      pollfd end = {.fd = handle.number(), .events = POLLIN, .revents = 0};
      if (handle.isOpen())  // otherwise it has ended since
        poll(&end, 1, -1);
    }
  }
}

class DeliveryTest : public testing::Test {
 protected:
  void TearDown() override { awaitEndOfPlugins(); }

  /// Expects exactly this number of commands with an empty list at the host.
  void expectEmptyLists(int count) {
    for (int line = 0; line < count; ++line)
      ASSERT_EQ(host.nextLine(), emptyListCommand);
    awaitEndOfPlugins();
    EXPECT_THAT(host.linesSoFar(), IsEmpty());
  }

  HostProcess host{DESKLOOM_HOST_PROGRAM, {"--installed"}};
};

TEST_F(DeliveryTest, EveryLaunchThroughTheBusMakesOneCommand) {
  EXPECT_EQ(runTwoHundredTimes("gdbus call --session -d com.quillary.Gleanery -o /com/quillary/Gleanery -m "
                               "org.freedesktop.Application.Open \"['deskloomplugin://runCommand/N']\" '{}'"),
            0);
  expectEmptyLists(200);
}

TEST_F(DeliveryTest, EveryLaunchByCommandLineMakesOneCommand) {
  EXPECT_EQ(runTwoHundredTimes(GLEANERY_PROGRAM " deskloomplugin://runCommand/N"), 0);
  expectEmptyLists(200);
}

TEST_F(DeliveryTest, LaunchesOfBothKindsAtOnceLoseNothing) {
  EXPECT_EQ(runTwoHundredTimes("sh -c 'if [ $((N % 2)) = 0 ]; then " GLEANERY_PROGRAM
                               " deskloomplugin://runCommand/N; else gio open deskloomplugin://runCommand/N; fi'"),
            0);
  expectEmptyLists(200);
}

TEST_F(DeliveryTest, ManyLaunchURLsOfOneLaunchMakeOneCommandEach) {
  std::vector<std::string> command = {GLEANERY_PROGRAM};
  for (int number = 0; number < 50; ++number)
    command.push_back("deskloomplugin://runCommand/" + std::to_string(number));
  EXPECT_EQ(TestSupport::run(command), 0);
  expectEmptyLists(50);
}

TEST_F(DeliveryTest, BadLaunchURLsOnTheCommandLineSendNothing) {
  for (const std::string& url : {std::string("nonsense"), std::string(), std::string("other://runCommand/apps"),
                                 std::string("deskloomplugin://runCommand/a b"), std::string("deskloomplugin://run%"),
                                 std::string("deskloomplugin://runcommand/apps"), std::string("\xFF\xFE"),
                                 std::string("deskloomplugin://runCommand/\xC3("), std::string(100000, 'a')}) {
    ChildProcess plugin({GLEANERY_PROGRAM, url}, {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
    EXPECT_THAT(plugin.readAll(), HasSubstr("This plugin must be run by Deskloom app.")) << url.substr(0, 40);
    EXPECT_EQ(plugin.wait(), 0) << url.substr(0, 40);
  }
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(DeliveryTest, BadLaunchURLsThroughTheBusSendNothing) {
  TestSupport::setActivationEnvironment("DISPLAY", "");  // nobody is there to dismiss alerts
  for (const std::string& url : {std::string("nonsense"), std::string(), std::string("other://runCommand/apps"),
                                 std::string("deskloomplugin://runCommand/a b"), std::string(1 << 20, 'a'),
                                 "deskloomplugin://" + std::string(1 << 20, 'a')}) {
    EXPECT_TRUE(TestSupport::openURL(pluginName, url));
    TestSupport::awaitNoOwner(pluginName);
  }
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(DeliveryTest, AnIdentifierOfAMegabyteIsTakenForOneThatNobodyHas) {
  EXPECT_TRUE(TestSupport::openURL(pluginName, "deskloomplugin://runCommand/" + std::string(1 << 20, 'a')));
  EXPECT_EQ(host.nextLine(), emptyListCommand);
}

}  // namespace
