#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Benchmarks/CopiedSession.h"
#include "BrowserSessions/Chromium/SessionReplay.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace {

using Benchmarks::CopiedSession;
using BrowserSessions::BrowserTab;
using BrowserSessions::SessionLog;
using BrowserSessions::SessionLogWriter;
using testing::ElementsAre;

/// The tabs of all windows of a log, which must have the mark.
std::vector<BrowserTab> tabsOf(const std::string& bytes) {
  const auto log = SessionLog::open(bytes);
  EXPECT_TRUE(log && log->isComplete());
  std::vector<BrowserTab> tabs;
  if (log)
    for (const auto& window : browserSession(chromiumSession(*log)))
      tabs.insert(tabs.end(), window.tabs.begin(), window.tabs.end());
  return tabs;
}

/// Logs of the two tabs a and b, with the mark before, between and after them.
std::vector<SessionLogWriter> realLogs() {
  return {SessionLogWriter().marker().window(11).tab(11, 11, 0, "a", u"A").tab(11, 12, 1, "b"),
          SessionLogWriter().window(11).tab(11, 11, 0, "a", u"A").marker().tab(11, 12, 1, "b"),
          SessionLogWriter().window(11).tab(11, 11, 0, "a", u"A").tab(11, 12, 1, "b").marker()};
}

TEST(CopiedSession, HasTheMarkAndTheGivenNumberOfTabsWhereverTheRealLogHasTheMark) {
  for (const SessionLogWriter& real : realLogs()) {
    const CopiedSession session(real.bytes());
    for (const std::size_t tabs : {0UL, 1UL, 2UL, 3UL, 4UL, 101UL})
      EXPECT_EQ(tabsOf(session.log(tabs, {})).size(), tabs);
  }
}

TEST(CopiedSession, HasTheRealLogsTabsWithANumberAfterTheAddress) {
  for (const SessionLogWriter& real : realLogs())
    EXPECT_THAT(tabsOf(CopiedSession(real.bytes()).log(5, {{"b", "B"}})),
                ElementsAre(BrowserTab{"A", "a"}, BrowserTab{"B", "b"}, BrowserTab{"A", "a#1"}, BrowserTab{"B", "b#1"},
                            BrowserTab{"A", "a#2"}))
        << "the last copy has the titles of the real log alone";
}

TEST(CopiedSession, HasNoTitlesInTheLastCopyThatTheRealLogLacks) {
  const CopiedSession session(realLogs()[2].bytes());
  EXPECT_THAT(tabsOf(session.log(2, {{"b", "B"}})), ElementsAre(BrowserTab{"A", "a"}, BrowserTab{"", "b"}));
}

TEST(CopiedSession, HasNoTabThatWasClosed) {
  const auto real = SessionLogWriter().window(11).tab(11, 11, 0, "a").tab(11, 12, 1, "b").marker().tabClosed(11);
  EXPECT_THAT(tabsOf(CopiedSession(real.bytes()).log(2, {})), ElementsAre(BrowserTab{"", "b"}, BrowserTab{"", "b#1"}));
}

TEST(CopiedSession, HasTheGivenNumberOfTabsIfAWindowWasClosed) {
  const auto real =
      SessionLogWriter().window(11).tab(11, 11, 0, "a").window(12).tab(12, 13, 0, "b").marker().windowClosed(12);
  EXPECT_EQ(tabsOf(CopiedSession(real.bytes()).log(3, {})).size(), 3U);
}

TEST(CopiedSession, HasAsManyCopiesAsTheTabsNeed) {
  const CopiedSession session(realLogs()[0].bytes());
  const std::vector<std::size_t> copies = {1, 1, 1, 2, 2, 3};
  for (std::size_t tabs = 0; tabs < copies.size(); ++tabs)
    EXPECT_EQ(session.copiesFor(tabs), copies[tabs]) << tabs;
}

}  // namespace
