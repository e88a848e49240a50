#include <algorithm>
#include <cstddef>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/Chromium/SessionReplay.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"

namespace BrowserSessions {
namespace {

// Two windows, a history that was pruned, a tab that was moved and a tab that was closed.
std::string someLog() {
  return SessionLogWriter()
      .window(1)
      .tab(1, 11, 0, "https://a.example/", u"Über \U0001F388")
      .tab(1, 12, 1, "https://b.example/", u"b")
      .shown(1, 1)
      .marker()
      .page(12, 1, "https://c.example/", u"c")
      .goTo(12, 1)
      .removed(12, 0, 1)
      .window(2)
      .tab(2, 21, 0, "https://d.example/")
      .inWindow(11, 2)
      .atIndex(11, 1)
      .tabClosed(21)
      .inFront(2)
      .lastActive(11, 5)
      .bytes();
}

// Whether the bytes yield a session that the layers above can rely on, or an error with a reason.
testing::AssertionResult isSound(std::string_view bytes) {
  const auto log = SessionLog::open(bytes);
  if (!log)
    return log.error().empty() ? testing::AssertionFailure() << "no reason" : testing::AssertionSuccess();
  for (const BrowserWindow& window : browserSession(chromiumSession(*log))) {
    if (window.activeTab >= window.tabs.size())
      return testing::AssertionFailure() << "tab " << window.activeTab << " of " << window.tabs.size();
    for (const auto& [title, url] : window.tabs)
      if (g_utf8_validate(title.data(), std::ssize(title), nullptr) == 0 ||
          g_utf8_validate(url.data(), std::ssize(url), nullptr) == 0)
        return testing::AssertionFailure() << "not UTF-8: " << title << " " << url;
  }
  return testing::AssertionSuccess();
}

TEST(DamagedSessionLog, IsReadUpToWhereverItIsCut) {
  const std::string whole = someLog();
  std::size_t tabs = 0;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const std::string_view cut = std::string_view(whole).substr(0, size);
    EXPECT_TRUE(isSound(cut)) << size;
    const auto session = browserSession(chromiumSession(*SessionLog::open(cut)));
    if (!session.empty())
      tabs = std::max(tabs, session.front().tabs.size());
  }
  EXPECT_EQ(tabs, 2U);
}

TEST(DamagedSessionLog, IsHarmlessWithAnyBitFlipped) {
  const std::string whole = someLog();
  for (std::size_t position = 0; position < whole.size(); ++position)
    for (int bit = 0; bit < 8; ++bit) {
      std::string flipped = whole;
      flipped[position] = static_cast<char>(flipped[position] ^ 1 << bit);
      EXPECT_TRUE(isSound(flipped)) << position << ", bit " << bit;
    }
}

TEST(DamagedSessionLog, IsHarmlessWithAnyByteAtItsLargest) {
  const std::string whole = someLog();
  for (std::size_t position = 0; position < whole.size(); ++position) {
    std::string changed = whole;
    changed[position] = '\xFF';
    EXPECT_TRUE(isSound(changed)) << position;
  }
}

TEST(DamagedSessionLog, IsHarmlessWithRecordsOfRandomBytes) {
  std::mt19937 random(1);
  const auto below = [&](unsigned limit) { return random() % limit; };
  for (int round = 0; round < 300; ++round) {
    SessionLogWriter log;
    for (int count = 0; count < 100; ++count) {
      std::string payload(below(4) * 4 + 4, '\0');
      for (char& byte : payload)
        byte = static_cast<char>(below(5) == 0 ? below(256) : below(3));
      log.record(static_cast<std::uint8_t>(below(26)), payload);
    }
    EXPECT_TRUE(isSound(log.bytes())) << round;
  }
}

TEST(DamagedSessionLog, TakesMoreTabsThanAnybodyHasInShortTime) {
  SessionLogWriter log;
  log.window(1);
  constexpr std::int32_t count = 120'000;
  for (std::int32_t tab = 0; tab < count; ++tab)
    log.inWindow(tab, 1).page(tab, 0, "a");
  const auto session = browserSession(chromiumSession(*SessionLog::open(log.bytes())));
  ASSERT_EQ(session.size(), 1U);
  EXPECT_GT(session.front().tabs.size(), 50'000U);
  EXPECT_LT(session.front().tabs.size(), 120'000U);
}

TEST(DamagedSessionLog, TakesEndlessChangesOfOneTabInShortTime) {
  SessionLogWriter log;
  log.window(1).tab(1, 11, 0, "a");
  for (std::int32_t change = 0; change < 50'000; ++change)
    log.page(11, change, "b").removed(11, 0, 1).atIndex(11, change).goTo(11, change).inWindow(11, 1 + change % 2);
  EXPECT_TRUE(isSound(log.bytes()));
}

}  // namespace
}  // namespace BrowserSessions
