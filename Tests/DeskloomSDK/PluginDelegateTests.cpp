#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/PluginDelegate.h"
#include "Platform/Fake/FakeServices.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PluginDelegateTest : public testing::Test {
 protected:
  class Delegate : public DeskloomSDK::PluginDelegate {
   public:
    explicit Delegate(std::vector<std::string>& calls) {
      plugin.actionController.onRun = [&calls](const std::string& id) { calls.push_back("run " + id); };
      connect(plugin);
    }

    DeskloomSDK::DeskloomPlugin plugin{{}};
  };

  Platform::Fake::FakeServices desktop;
  std::vector<std::string> calls;
};

TEST_F(PluginDelegateTest, PassesLaunchURLsToItsPlugin) {
  const Delegate delegate(calls);
  desktop.application.deliver("deskloomplugin://run/A");
  EXPECT_THAT(calls, ElementsAre("run A"));
  EXPECT_TRUE(delegate.plugin.actionController.didPerformAction);
}

TEST_F(PluginDelegateTest, TakesTheHandlersThatThePluginHasWhenALaunchURLArrives) {
  Delegate delegate(calls);
  delegate.plugin.actionController.onRun = [this](const std::string& id) { calls.push_back("new " + id); };
  desktop.application.deliver("deskloomplugin://run/A");
  EXPECT_THAT(calls, ElementsAre("new A"));
}

TEST_F(PluginDelegateTest, ReceivesNothingAfterItsEnd) {
  std::make_unique<Delegate>(calls).reset();
  desktop.application.deliver("deskloomplugin://run/A");
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginDelegateTest, IgnoresURLEventsBeforeItIsConnected) {
  class Unconnected : public DeskloomSDK::PluginDelegate {};
  auto event = Platform::AppleEvent::getURL("deskloomplugin://run/A");
  Unconnected().handleGetURLEvent(event, event);
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PluginDelegateTest, DoesNothingItselfAtTheEndOfLaunching) {
  Delegate delegate(calls);
  delegate.applicationDidFinishLaunching({Platform::applicationDidFinishLaunchingNotification, nullptr});
  EXPECT_THAT(desktop.events, IsEmpty());
}

TEST_F(PluginDelegateTest, CannotBeCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<Delegate>);
  EXPECT_FALSE(std::is_copy_assignable_v<Delegate>);
}

}  // namespace
