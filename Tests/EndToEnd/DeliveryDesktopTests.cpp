// Launch URLs by the hundred, bad ones, and payloads of megabytes: what arrives, and how often.

#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;

namespace {

constexpr const char* pluginName = "com.quillary.Gleanery";
constexpr const char* emptyListCommand = "deskloom://gleanery/%5B%5D";

/// Runs the shell text 200 times, from eight processes at once.
int runTwoHundredTimes(const std::string& command) {
  return TestSupport::run({"sh", "-c", "seq 200 | xargs -P 8 -I N " + command + " >/dev/null"});
}

class DeliveryTest : public testing::Test {
 protected:
  HostProcess host{DESKLOOM_HOST_PROGRAM, {"--installed"}};
};

TEST_F(DeliveryTest, EveryLaunchThroughTheBusMakesOneCommand) {
  EXPECT_EQ(runTwoHundredTimes("gdbus call --session -d com.quillary.Gleanery -o /com/quillary/Gleanery -m "
                               "org.freedesktop.Application.Open \"['deskloomplugin://runCommand/N']\" '{}'"),
            0);
  TestSupport::awaitNoOwner(pluginName);
  const auto lines = host.linesSoFar();
  EXPECT_THAT(lines, SizeIs(200));
  EXPECT_THAT(lines, Each(emptyListCommand));
}

TEST_F(DeliveryTest, EveryLaunchByCommandLineMakesOneCommand) {
  EXPECT_EQ(runTwoHundredTimes(GLEANERY_PROGRAM " deskloomplugin://runCommand/N"), 0);
  TestSupport::awaitNoOwner(pluginName);
  const auto lines = host.linesSoFar();
  EXPECT_THAT(lines, SizeIs(200));
  EXPECT_THAT(lines, Each(emptyListCommand));
}

TEST_F(DeliveryTest, LaunchesOfBothKindsAtOnceLoseNothing) {
  EXPECT_EQ(runTwoHundredTimes("sh -c 'if [ $((N % 2)) = 0 ]; then " GLEANERY_PROGRAM
                               " deskloomplugin://runCommand/N; else gio open deskloomplugin://runCommand/N; fi'"),
            0);
  for (int i = 0; i < 200; ++i)
    ASSERT_EQ(host.nextLine(), emptyListCommand);
  TestSupport::awaitNoOwner(pluginName);
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
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
