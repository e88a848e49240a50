// Safari with a real GNOME Web.

#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include "Tests/ScriptableApps/WebTest.h"

namespace {

using TestSupport::listSafariTabs;
using TestSupport::listSafariWindows;
using TestSupport::textOfScript;
using TestSupport::WebTest;

constexpr const char* notRunning = "-600: Safari got an error: Application isn’t running.";

TEST_F(WebTest, HasItsTabsListedForEachWindow) {
  start({url("a"), url("b"), url("c")});
  expectPages({{"c", "a", "b", "c"}});
  start({"--new-window", url("d")});
  expectPages({{"d", "d"}, {"c", "a", "b", "c"}});
  start({url("e")});
  expectPages({{"e", "d", "e"}, {"c", "a", "b", "c"}});
  std::string lines;
  for (const char* name : {"d", "e", "a", "b", "c"})
    lines += std::string("Page ") + name + '\n' + url(name) + '\n';
  EXPECT_EQ(textOfScript(listSafariTabs), lines);
}

TEST_F(WebTest, FollowsTheOrderThatTheUserGivesItsTabs) {
  start({url("a"), url("b"), url("c")});
  expectPages({{"c", "a", "b", "c"}});
  clickAtPage("Page c");
  input_.press({XKB_KEY_Control_L, XKB_KEY_Shift_L}, XKB_KEY_Page_Up);
  input_.press({XKB_KEY_Control_L}, XKB_KEY_Page_Up);
  expectPages({{"a", "a", "c", "b"}});
  input_.press({XKB_KEY_Control_L}, XKB_KEY_w);
  expectPages({{"c", "c", "b"}});
}

TEST_F(WebTest, FollowsATabToThePageThatTheUserOpens) {
  start({url("a")});
  expectPages({{"a", "a"}});
  clickAtPage("Page a");
  input_.press(XKB_KEY_Return);
  expectPages({{"a1", "a1"}});
  input_.press({XKB_KEY_Alt_L}, XKB_KEY_Left);
  expectPages({{"a", "a"}});
}

TEST_F(WebTest, TakesNoticeOfTitlesThatScriptsChangeWheneverItSavesSomethingElse) {
  start({url("a")});
  expectPages({{"a", "a"}});
  clickAtPage("Page a");
  input_.press(XKB_KEY_x);
  ASSERT_TRUE(desktop_.waitForTitle("Page ax"));
  start({url("b")});
  expectWindows("a window that shows Page b\nPage ax\n" + url("a") + "\nPage b\n" + url("b") + '\n',
                {{"Page b", "Page ax", "Page b"}});
}

TEST_F(WebTest, HasTabsListedThatAreNotLoadedYet) {
  std::ofstream(profile_ / "session_state.xml")
      << "<?xml version='1.0'?>\n<session><window width='900' height='600' active-tab='2'>"
      << "<embed url='" << url("pinned") << "' title='Page pinned' pinned='true'/>"
      << "<embed url='" << url("unloaded") << "' title='Page unloaded'/>"
      << "<embed url='" << url("b") << "' title='Page not renamed yet'/></window></session>";
  start({});
  expectPages({{"b", "pinned", "unloaded", "b"}});
}

TEST_F(WebTest, IsNotListedInPrivate) {
  start({"--incognito-mode", url("secret")});
  ASSERT_TRUE(desktop_.waitForTitle("Page secret"));
  EXPECT_EQ(textOfScript(listSafariWindows), notRunning);
  start({url("a")});
  ASSERT_TRUE(desktop_.waitForTitle("Page a"));
  // When a tab is added, the other tabs are saved. The title of the last one may come too late for that.
  start({url("b")});
  ASSERT_TRUE(desktop_.waitForTitle("Page b"));
  std::string listed;
  EXPECT_TRUE(changes_.waitUntil([&] {
    listed = textOfScript(listSafariTabs);
    return listed.starts_with("Page a\n" + url("a") + '\n');
  })) << listed;
  EXPECT_THAT(listed, testing::Not(testing::HasSubstr("secret")));
}

TEST_F(WebTest, IsKnownWithItsProfileAndProcessWhileItRuns) {
  EXPECT_EQ(BrowserSessions::runningGNOMEWeb(), std::nullopt);
  const TestSupport::ChildProcess& web = start({url("a")});
  TestSupport::awaitOwner(BrowserSessions::gnomeWebBusName);
  EXPECT_EQ(BrowserSessions::runningGNOMEWeb(), (BrowserSessions::RunningGNOMEWeb{profile_, web.pid()}));
}

TEST_F(WebTest, HasNothingListedOnceItHasQuit) {
  TestSupport::ChildProcess& web = start({url("a")});
  expectPages({{"a", "a"}});
  clickAtPage("Page a");
  input_.press({XKB_KEY_Control_L}, XKB_KEY_q);
  EXPECT_EQ(web.wait(), 0);
  EXPECT_EQ(textOfScript(listSafariWindows), notRunning);
}

TEST_F(WebTest, IsSaidToBeOutOfDateWhileItSavesNothing) {
  start({url("a")});
  expectPages({{"a", "a"}});
  testing::internal::CaptureStderr();
  EXPECT_EQ(textOfScript(listSafariTabs), "Page a\n" + url("a") + '\n');
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  start({"view-source:" + url("a")});
  ASSERT_TRUE(desktop_.waitForTitle(url("a")));
  start({url("b")});
  ASSERT_TRUE(desktop_.waitForTitle("Page b"));
  testing::internal::CaptureStderr();
  EXPECT_THAT(textOfScript(listSafariTabs), testing::Not(testing::HasSubstr("Page b")));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "The list of GNOME Web's tabs may be out of date: a window shows a page that is not saved yet in " +
                profile_.string() + ".\n");
}

}  // namespace
