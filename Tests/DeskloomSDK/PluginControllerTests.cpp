#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/PluginController.h"

using DeskloomSDK::PluginController;
using Platform::AppleEvent;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PluginControllerTest : public testing::Test {
 protected:
  PluginControllerTest() {
    controller.onRun = [this](const std::string& id) { calls.push_back("run " + id); };
    controller.onEdit = [this](const std::string& id) { calls.push_back("edit " + id); };
    controller.onConfigure = [this] { calls.emplace_back("configure"); };
    controller.onRunCommand = [this](const std::optional<std::string>& id) {
      calls.push_back("runCommand " + id.value_or("(none)"));
    };
  }

  bool open(std::string text) { return controller.handleURLEvent(AppleEvent::getURL(std::move(text))); }

  PluginController controller;
  std::vector<std::string> calls;
};

TEST_F(PluginControllerTest, CallsTheHandlerOfTheAction) {
  EXPECT_TRUE(open("deskloomplugin://run/A"));
  EXPECT_TRUE(open("deskloomplugin://edit/B"));
  EXPECT_TRUE(open("deskloomplugin://configure"));
  EXPECT_TRUE(open("deskloomplugin://runCommand/safari"));
  EXPECT_THAT(calls, ElementsAre("run A", "edit B", "configure", "runCommand safari"));
}

TEST_F(PluginControllerTest, IgnoresTheIdentifierOfConfigure) {
  EXPECT_TRUE(open("deskloomplugin://configure/ABC"));
  EXPECT_THAT(calls, ElementsAre("configure"));
}

TEST_F(PluginControllerTest, RunsACommandWithoutAnIdentifier) {
  EXPECT_TRUE(open("deskloomplugin://runCommand"));
  EXPECT_TRUE(open("deskloomplugin://runCommand/a/b"));
  EXPECT_THAT(calls, ElementsAre("runCommand (none)", "runCommand (none)"));
}

TEST_F(PluginControllerTest, RemembersThatAnActionWasPerformed) {
  EXPECT_FALSE(controller.didPerformAction);
  open("deskloomplugin://runCommand/X");
  EXPECT_TRUE(controller.didPerformAction);
}

TEST_F(PluginControllerTest, RemembersItOnlyOnceTheHandlerHasReturned) {
  bool during = true;
  controller.onConfigure = [&] { during = controller.didPerformAction; };
  open("deskloomplugin://configure");
  EXPECT_FALSE(during);
  EXPECT_TRUE(controller.didPerformAction);
}

TEST_F(PluginControllerTest, ForgetsItWhereRunOrEditComesWithoutAnIdentifier) {
  for (const auto* text : {"deskloomplugin://run", "deskloomplugin://edit", "deskloomplugin://run/a/b"}) {
    controller.didPerformAction = true;
    EXPECT_FALSE(open(text));
    EXPECT_FALSE(controller.didPerformAction);
  }
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, LeavesUnknownActionsAlone) {
  for (const bool before : {false, true}) {
    controller.didPerformAction = before;
    for (const auto* text : {"deskloomplugin://Run/X", "deskloomplugin://runcommand/X", "deskloomplugin://delete/X"})
      EXPECT_FALSE(open(text));
    EXPECT_EQ(controller.didPerformAction, before);
  }
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, IgnoresWhatIsNoLaunchURL) {
  for (const std::string& text : {std::string(), std::string("deskloomplugin://run/a b"), std::string("other://run/X"),
                                  std::string("run"), std::string("\xFF\xFE"), std::string("deskloomplugin:run"),
                                  std::string(1 << 20, 'a'), std::string(1 << 20, '%')})
    EXPECT_FALSE(open(text));
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginControllerTest, TakesAnIdentifierOfAMegabyte) {
  const std::string identifier(1 << 20, 'a');
  EXPECT_TRUE(open("deskloomplugin://run/" + identifier));
  EXPECT_THAT(calls, ElementsAre("run " + identifier));
}

TEST_F(PluginControllerTest, IgnoresAnEventWithoutADirectObjectOrWithoutText) {
  AppleEvent event(Platform::internetEventClass, Platform::getURLEventID);
  EXPECT_FALSE(controller.handleURLEvent(event));
  event.setParamDescriptor(Platform::keyDirectObject, {std::nullopt});
  EXPECT_FALSE(controller.handleURLEvent(event));
}

TEST(PluginControllerDeathTest, StopsTheProcessOverAHandlerThatIsNotSet) {
  PluginController controller;
  const auto open = [&](const char* text) { controller.handleURLEvent(AppleEvent::getURL(text)); };
  EXPECT_DEATH(open("deskloomplugin://run/A"),
               "^Fatal error: Run action not implemented yet\\.: file PluginController\\.cpp, line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://edit/A"),
               "^Fatal error: Edit action not implemented yet\\.: file PluginController\\.cpp, line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://configure"),
               "^Fatal error: Edit Global Configuration action not implemented yet\\.: file PluginController\\.cpp, "
               "line [0-9]+\n$");
  EXPECT_DEATH(open("deskloomplugin://runCommand"),
               "^Fatal error: Edit Global Configuration action not implemented yet\\.: file PluginController\\.cpp, "
               "line [0-9]+\n$");
}

}  // namespace
