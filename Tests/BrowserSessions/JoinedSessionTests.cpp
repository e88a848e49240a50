#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"
#include "BrowserSessions/Chromium/LoggedSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"

namespace BrowserSessions {
namespace {

// What is open if the DevTools list these tabs, and "main" is the profile that was used last.
BrowserSession joinedWith(const LoggedSession& logged, std::vector<DevToolsTab> tabs) {
  return joined({.tabs = std::move(tabs), .mainProfile = "main"}, logged);
}

DevToolsTab tab(std::int32_t window, std::int32_t index, const std::string& url, bool isShown = false,
                const std::string& profile = "main") {
  return {.window = window, .index = index, .isShown = isShown, .profile = profile, .page = {"live", url}};
}

// A window in a log, whose page is out of date.
ChromiumWindow logged(std::int32_t number) {
  return {number, {{{"", "logged"}}, 0}};
}

BrowserWindow window(const std::string& urls, std::size_t activeTab = 0) {
  BrowserWindow made;
  for (const char url : urls)
    made.tabs.push_back({"live", std::string(1, url)});
  made.activeTab = activeTab;
  return made;
}

TEST(JoinedSession, HasTheTabsInTheOrderOfTheStrip) {
  EXPECT_EQ(joinedWith({{logged(1)}}, {tab(1, 2, "c"), tab(1, 0, "a"), tab(1, 1, "b", true)}),
            BrowserSession{window("abc", 1)});
}

TEST(JoinedSession, HasTheWindowsInTheOrderOfTheLogAndThenNewOnes) {
  EXPECT_EQ(joinedWith({{logged(5), logged(2), logged(3)}},
                       {tab(2, 0, "b"), tab(9, 0, "z"), tab(3, 0, "c"), tab(8, 0, "y"), tab(5, 0, "e")}),
            (BrowserSession{window("e"), window("b"), window("c"), window("y"), window("z")}));
}

TEST(JoinedSession, HasNoWindowsThatHaveBeenClosedMeanwhile) {
  EXPECT_EQ(joinedWith({{logged(1), logged(2)}}, {tab(2, 0, "b")}), BrowserSession{window("b")});
  EXPECT_EQ(joinedWith({{logged(1)}}, {}), BrowserSession());
}

TEST(JoinedSession, HasNoPrivateWindows) {
  EXPECT_EQ(joinedWith({{logged(1)}}, {tab(1, 0, "a"), tab(2, 0, "s", true, "private")}), BrowserSession{window("a")});
  EXPECT_EQ(joinedWith({}, {tab(2, 0, "s", true, "private")}), BrowserSession()) << "the only window";
}

TEST(JoinedSession, HasNewWindowsOfEveryProfileThatTheLogKnows) {
  EXPECT_EQ(joinedWith({{logged(1)}}, {tab(1, 0, "a", true, "second"), tab(2, 0, "b", true, "second"),
                                       tab(3, 0, "s", true, "private of second")}),
            (BrowserSession{window("a"), window("b")}));
}

TEST(JoinedSession, HasNoPopUpsThatTheLogKnows) {
  EXPECT_EQ(joinedWith({.windows = {logged(1)}, .otherWindows = {2, 3}},
                       {tab(1, 0, "a"), tab(2, 0, "p"), tab(3, 0, "q"), tab(4, 0, "n")}),
            (BrowserSession{window("a"), window("n")}));
}

TEST(JoinedSession, DoesWithoutALog) {
  EXPECT_EQ(joinedWith({}, {tab(2, 1, "c", true), tab(2, 0, "b"), tab(1, 0, "a")}),
            (BrowserSession{window("a"), window("bc", 1)}));
}

}  // namespace
}  // namespace BrowserSessions
