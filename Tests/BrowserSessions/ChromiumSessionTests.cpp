#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionReplay.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace BrowserSessions {
namespace {

BrowserSession session(const SessionLogWriter& log) {
  const auto opened = SessionLog::open(log.bytes());
  return opened ? browserSession(chromiumSession(*opened)) : BrowserSession{{{{"not a log", ""}}}};
}

// Window 1 with the tabs a, b and c (11, 12 and 13). It shows b.
SessionLogWriter threeTabs() {
  return SessionLogWriter().window(1).tab(1, 11, 0, "a").tab(1, 12, 1, "b").tab(1, 13, 2, "c").shown(1, 1);
}

BrowserWindow window(const std::string& urls, std::size_t activeTab) {
  BrowserWindow made;
  for (const char url : urls)
    made.tabs.push_back({"", std::string(1, url)});
  made.activeTab = activeTab;
  return made;
}

TEST(ChromiumSession, HasNothingOpenWithoutRecords) {
  EXPECT_EQ(session(SessionLogWriter()), BrowserSession());
  EXPECT_EQ(session(SessionLogWriter().marker()), BrowserSession());
}

TEST(ChromiumSession, HasAWindowsTabsWithTheirTitlesAndAddresses) {
  const auto log = SessionLogWriter()
                       .window(1)
                       .tab(1, 11, 0, "https://a.example/", u"Tür \U0001F388")
                       .tab(1, 12, 1, "chrome://newtab/", u"New Tab")
                       .shown(1, 1)
                       .marker();
  const BrowserSession expected = {{{{"Tür 🎈", "https://a.example/"}, {"New Tab", "chrome://newtab/"}}, 1}};
  EXPECT_EQ(session(log), expected);
}

TEST(ChromiumSession, CountsWhatHappensBeforeAndAfterTheMarker) {
  EXPECT_EQ(session(threeTabs().marker().tab(1, 14, 3, "d")), BrowserSession{window("abcd", 1)});
}

TEST(ChromiumSession, HasTheTabsInTheOrderOfTheStrip) {
  const auto log = SessionLogWriter().window(1).tab(1, 11, 7, "c").tab(1, 12, 5, "b").tab(1, 13, 0, "a").shown(1, 5);
  EXPECT_EQ(session(log), BrowserSession{window("abc", 1)}) << "with gaps";
  EXPECT_EQ(session(threeTabs().pinned(12)), BrowserSession{window("abc", 1)});
}

TEST(ChromiumSession, ShowsTheFirstTabWhereNoneIsTold) {
  EXPECT_EQ(session(threeTabs().shown(1, 9)), BrowserSession{window("abc", 0)});
  EXPECT_EQ(session(SessionLogWriter().window(1).tab(1, 11, 0, "a")), BrowserSession{window("a", 0)});
}

TEST(ChromiumSession, LacksTabsThatAreClosed) {
  EXPECT_EQ(session(threeTabs().tabClosed(11).atIndex(12, 0).atIndex(13, 1).shown(1, 0)),
            BrowserSession{window("bc", 0)});
  EXPECT_EQ(session(threeTabs().tabClosed(12)), BrowserSession{window("ac", 0)}) << "the one that was shown";
  EXPECT_EQ(session(threeTabs().tabClosed(99)), BrowserSession{window("abc", 1)});
  EXPECT_EQ(session(threeTabs().tabClosed(11).tabClosed(12).tabClosed(13)), BrowserSession());
}

TEST(ChromiumSession, FollowsATabThatIsMoved) {
  EXPECT_EQ(session(threeTabs().atIndex(13, 0).atIndex(11, 1).atIndex(12, 2).shown(1, 0)),
            BrowserSession{window("cab", 0)});
}

TEST(ChromiumSession, FollowsATabThatIsDraggedOutToAWindowOfItsOwn) {
  auto log = threeTabs();
  log.window(2).inWindow(12, 2).atIndex(12, 0).shown(2, 0).atIndex(13, 1).shown(1, 1).inFront(2);
  EXPECT_EQ(session(log), (BrowserSession{window("b", 0), window("ac", 1)}));
}

TEST(ChromiumSession, FollowsTheLastTabOfAWindowIntoAnother) {
  auto log = threeTabs();
  log.window(2).tab(2, 21, 0, "d").inWindow(21, 1).atIndex(21, 3).shown(1, 3).windowClosed(2);
  EXPECT_EQ(session(log), BrowserSession{window("abcd", 3)});
}

TEST(ChromiumSession, ShowsThePageThatTheTabIsBackOrForthAt) {
  auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a").page(11, 1, "b").page(11, 2, "c").goTo(11, 2);
  EXPECT_EQ(session(log), BrowserSession{window("c", 0)});
  EXPECT_EQ(session(log.goTo(11, 0)), BrowserSession{window("a", 0)});
  EXPECT_EQ(session(log.goTo(11, 1)), BrowserSession{window("b", 0)});
  EXPECT_EQ(session(log.removed(11, 2, 1).page(11, 2, "d").goTo(11, 2)), BrowserSession{window("d", 0)});
  EXPECT_EQ(session(log.page(11, 2, "e")), BrowserSession{window("e", 0)}) << "replaced";
}

TEST(ChromiumSession, FollowsHistoriesThatArePruned) {
  const auto number = [](std::int32_t value) { return SessionLogWriter::number(value); };
  const auto history = [] {
    return SessionLogWriter()
        .window(1)
        .tab(1, 11, 0, "a")
        .page(11, 1, "b")
        .page(11, 2, "c")
        .page(11, 3, "d")
        .goTo(11, 2);
  };
  EXPECT_EQ(session(history().removed(11, 0, 2)), BrowserSession{window("c", 0)}) << "before it";
  EXPECT_EQ(session(history().removed(11, 2, 1)), BrowserSession{window("b", 0)}) << "the page itself";
  EXPECT_EQ(session(history().removed(11, 3, 1)), BrowserSession{window("c", 0)}) << "after it";
  EXPECT_EQ(session(history().record(11, number(11) + number(1))), BrowserSession{window("c", 0)});
  EXPECT_EQ(session(history().record(5, number(11) + number(1))), BrowserSession{window("a", 0)});
}

LoggedSession logged(const SessionLogWriter& log) {
  return chromiumSession(*SessionLog::open(log.bytes()));
}

TEST(ChromiumSession, LeavesOutTabsWhoseAddressIsTooLongForTheLog) {
  auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a").tab(1, 12, 1, "", u"Too long").tab(1, 13, 2, "c");
  EXPECT_EQ(session(log.shown(1, 2)), BrowserSession{window("ac", 1)});
  EXPECT_EQ(session(log.shown(1, 1)), BrowserSession{window("ac", 1)}) << "the shown one";
  EXPECT_EQ(logged(log).tabsWithoutAddress, 1);
  log.page(13, 1, "").goTo(13, 1);
  EXPECT_EQ(session(log.shown(1, 2)), BrowserSession{window("a", 0)}) << "the shown and last one";
  EXPECT_EQ(logged(log).tabsWithoutAddress, 2);
  log.page(12, 0, "b");
  EXPECT_EQ(session(log), BrowserSession{window("ab", 1)});
  EXPECT_EQ(logged(log).tabsWithoutAddress, 1);
}

TEST(ChromiumSession, SaysWhetherItHasTheTabThatIsShown) {
  auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a").tab(1, 12, 1, "").inWindow(13, 1).atIndex(13, 2);
  EXPECT_TRUE(logged(log.shown(1, 0)).windows[0].hasShownTab);
  EXPECT_FALSE(logged(log.shown(1, 1)).windows[0].hasShownTab) << "left out";
  EXPECT_FALSE(logged(log.shown(1, 2)).windows[0].hasShownTab) << "without a page";
}

TEST(ChromiumSession, LeavesOutAWindowWhoseTabsAreAllLeftOut) {
  const auto log = SessionLogWriter().window(1).tab(1, 11, 0, "").window(2).tab(2, 21, 0, "b").inFront(1);
  EXPECT_EQ(session(log), BrowserSession{window("b", 0)});
  EXPECT_EQ(logged(log).windows.size(), 2);
  EXPECT_EQ(logged(log).tabsWithoutAddress, 1);
}

TEST(ChromiumSession, MakesTextsValid) {
  const std::u16string loneSurrogate = {u'a', char16_t{0xD800}, u'b'};
  const auto log = SessionLogWriter().window(1).tab(1, 11, 0, "https://a\xFF/", loneSurrogate);
  const BrowserSession expected = {{{{"a\uFFFDb", "https://a\uFFFD/"}}, 0}};
  EXPECT_EQ(session(log), expected);
}

TEST(ChromiumSession, CutsLongTitles) {
  const auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a", std::u16string(5000, u'x'));
  EXPECT_EQ(session(log).at(0).tabs.at(0).title, std::string(999, 'x') + "…");
}

TEST(ChromiumSession, LeavesOutTabsWithoutAWindowOrAPage) {
  auto log = threeTabs();
  log.page(14, 0, "no window").inWindow(15, 1).atIndex(15, 0).inWindow(16, 9).page(16, 0, "unknown window");
  EXPECT_EQ(session(log), BrowserSession{window("abc", 1)});
}

TEST(ChromiumSession, LeavesOutWindowsThatAreClosedOrNeverOpened) {
  EXPECT_EQ(session(threeTabs().window(2).tab(2, 21, 0, "d").windowClosed(1)), BrowserSession{window("d", 0)});
  EXPECT_EQ(session(threeTabs().tab(2, 21, 0, "d").shown(2, 0)), BrowserSession{window("abc", 1)});
  EXPECT_EQ(session(threeTabs().window(2)), BrowserSession{window("abc", 1)}) << "without tabs";
}

TEST(ChromiumSession, HasTheBrowsersNormalWindowsOnly) {
  for (const std::int32_t type : {1, 2, 3, 4, -1, 77})
    EXPECT_EQ(session(threeTabs().window(2, type).tab(2, 21, 0, "d").inFront(2)), BrowserSession{window("abc", 1)})
        << type;
}

TEST(ChromiumSession, HasTheWindowInFrontFirst) {
  auto log = threeTabs();
  log.window(3).tab(3, 31, 0, "z").window(2).tab(2, 21, 0, "y");
  EXPECT_EQ(session(log), (BrowserSession{window("abc", 1), window("y", 0), window("z", 0)}));
  EXPECT_EQ(session(log.inFront(3)), (BrowserSession{window("z", 0), window("abc", 1), window("y", 0)}));
}

TEST(ChromiumSession, HasTheWindowThatWasUsedLastFirstWhereNoneIsInFront) {
  auto log = threeTabs();
  log.window(2).tab(2, 21, 0, "y").lastActive(11, 10).lastActive(21, 20).lastActive(99, 30);
  EXPECT_EQ(session(log), (BrowserSession{window("y", 0), window("abc", 1)}));
  EXPECT_EQ(session(log.inFront(7)), (BrowserSession{window("y", 0), window("abc", 1)})) << "an unknown one in front";
  EXPECT_EQ(session(log.lastActive(12, 25)), (BrowserSession{window("abc", 1), window("y", 0)}));
}

TEST(ChromiumSession, SkipsRecordsThatAreNotKnown) {
  auto log = SessionLogWriter();
  for (int id = 38; id < 255; ++id)
    log.record(static_cast<std::uint8_t>(id), "12345678");
  EXPECT_EQ(session(log.window(1).tab(1, 11, 0, "a")), BrowserSession{window("a", 0)});
}

TEST(ChromiumSession, SkipsRecordsOfAnotherSizeThanTheirs) {
  auto log = threeTabs();
  for (const int id : {0, 2, 5, 7, 8, 9, 11, 16, 17, 20, 21, 24})
    for (const std::size_t size : {0, 1, 3, 5, 7, 9, 11, 13, 15, 17, 100})
      log.record(static_cast<std::uint8_t>(id), std::string(size, '\x0B'));
  EXPECT_EQ(session(log), BrowserSession{window("abc", 1)});
}

TEST(ChromiumSession, SkipsPagesThatAreNotWhole) {
  const std::string whole = PickleWriter().integer(11).integer(0).text("other").text16(u"x").bytes();
  auto log = threeTabs();
  for (std::size_t size = 0; size < whole.size(); ++size)
    log.record(6, std::string_view(whole).substr(0, size));
  for (const std::int32_t count : {-1, 1000, 1 << 30}) {
    log.record(6, PickleWriter().integer(11).integer(0).integer(count).text16(u"x").bytes());
    log.record(6, PickleWriter().integer(11).integer(0).text("other").integer(count).bytes());
  }
  EXPECT_EQ(session(log), BrowserSession{window("abc", 1)});
  EXPECT_EQ(session(log.record(6, whole)).front().tabs.front(), (BrowserTab{"x", "other"}));
}

}  // namespace
}  // namespace BrowserSessions
