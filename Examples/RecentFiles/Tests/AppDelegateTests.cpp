// The plug-in as a whole, on a fake desktop with a host that answers scripts and a user who changes settings.

#include <gmock/gmock.h>

#include "AppDelegate.h"
#include "Folder.h"
#include "Platform/Fake/FakeServices.h"

using RecentFiles::AppDelegate;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class AppDelegateTest : public testing::Test {
 protected:
  AppDelegateTest() { desktop.scripts.answerText(""); }

  /// The last script that sets an action's configuration; empty if there was none.
  [[nodiscard]] std::string lastConfigOf(const std::string& actionID) const {
    std::string last;
    for (const std::string& source : desktop.scripts.sources)
      if (source.find("set config") != std::string::npos && source.find(actionID) != std::string::npos)
        last = source;
    return last;
  }

  Platform::Fake::FakeServices desktop;
  AppDelegate delegate;
};

TEST_F(AppDelegateTest, RunsAnActionAndEnds) {
  desktop.application.deliver("deskloomplugin://run/A");
  EXPECT_THAT(desktop.workspace.opened, SizeIs(1));
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(AppDelegateTest, SavesEditsAfterASecondAndEndsWithTheWindow) {
  desktop.application.deliver("deskloomplugin://edit/A");
  ASSERT_THAT(desktop.windows.made, SizeIs(1));
  auto& window = *desktop.windows.made[0];
  EXPECT_TRUE(window.isVisible);
  EXPECT_TRUE(window.enter("How many", 3));
  EXPECT_TRUE(window.choose("What", "Images"));
  EXPECT_THAT(lastConfigOf("A"), IsEmpty());
  desktop.queues.advance(std::chrono::seconds(2));
  EXPECT_THAT(lastConfigOf("A"), HasSubstr(R"({\"count\":3,\"kind\":\"images\"})"));
  window.window->close();
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(AppDelegateTest, ShowsOneWindowPerActionAndEndsWithTheLast) {
  for (const auto* action : {"A", "B", "A"})
    desktop.application.deliver(std::string("deskloomplugin://edit/") + action);
  ASSERT_THAT(desktop.windows.made, SizeIs(2));
  EXPECT_EQ(desktop.windows.made[0]->timesOrderedFront, 2);
  desktop.application.deliver("deskloomplugin://run/A");
  desktop.windows.made[0]->window->close();
  EXPECT_EQ(desktop.application.terminations, 0);
  desktop.windows.made[1]->window->close();
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(AppDelegateTest, GivesNewActionsTheCountThatIsConfigured) {
  desktop.application.deliver("deskloomplugin://configure");
  ASSERT_THAT(desktop.windows.made, SizeIs(1));
  EXPECT_TRUE(desktop.windows.made[0]->enter("How many documents a new action sends", 7));
  EXPECT_TRUE(desktop.windows.made[0]->choose("Files that are gone", "Send"));
  desktop.application.deliver("deskloomplugin://edit/A");
  desktop.windows.made[0]->window->close();
  desktop.windows.made[1]->window->close();
  EXPECT_THAT(lastConfigOf("A"), HasSubstr(R"(\"count\":7)"));
}

TEST_F(AppDelegateTest, TellsTheUserAndEndsIfTheHostCannotBeRead) {
  desktop.scripts.fail(-600, "Application isn't running.");
  desktop.application.deliver("deskloomplugin://run/A");
  EXPECT_THAT(desktop.alerts.shown, SizeIs(1));
  EXPECT_THAT(desktop.workspace.opened, IsEmpty());
  EXPECT_EQ(desktop.application.terminations, 1);
}

TEST_F(AppDelegateTest, EndsIfThereIsNoDisplay) {
  desktop.windows.hasDisplay = false;
  desktop.application.deliver("deskloomplugin://edit/A");
  EXPECT_EQ(desktop.application.terminations, 1);
}

}  // namespace
