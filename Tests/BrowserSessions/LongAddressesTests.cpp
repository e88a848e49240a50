#include <string>

#include <gmock/gmock.h>

#include "BrowserSessions/BrowserSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"

namespace {

using BrowserSessions::BrowserSession;
using BrowserSessions::BrowserWindow;
using BrowserSessions::longestAddress;
using BrowserSessions::SessionReading;
using testing::ElementsAre;

// A window with a tab for each letter. The address of a capital letter is too long.
BrowserWindow windowOf(const std::string& letters, std::size_t activeTab = 0) {
  BrowserWindow window{.tabs = {}, .activeTab = activeTab};
  for (const char letter : letters)
    window.tabs.push_back({{letter}, std::string(letter < 'a' ? longestAddress + 1 : longestAddress, letter)});
  return window;
}

SessionReading read(BrowserSession session) {
  SessionReading reading{.session = std::move(session), .problems = {"Another."}};
  leaveOutLongAddresses(reading);
  return reading;
}

TEST(LongAddresses, AreLeftOutAndCounted) {
  const auto reading = read({windowOf("aBcD"), windowOf("e"), windowOf("fG")});
  EXPECT_EQ(reading.session, BrowserSession({windowOf("ac"), windowOf("e"), windowOf("f")}));
  EXPECT_THAT(reading.problems,
              ElementsAre("Another.", "Tabs left out because their addresses are longer than 65536 bytes: 3."));
}

TEST(LongAddresses, ChangeNothingIfThereAreNone) {
  const BrowserSession session = {windowOf("ab", 1), windowOf(""), windowOf("c")};
  EXPECT_EQ(read(session).session, session);
  EXPECT_THAT(read(session).problems, ElementsAre("Another."));
}

TEST(LongAddresses, TakeAWindowWithThemThatHasNoOther) {
  EXPECT_EQ(read({windowOf("AB"), windowOf("c")}).session, BrowserSession({windowOf("c")}));
}

TEST(LongAddresses, LeaveTheShownTabShown) {
  EXPECT_EQ(read({windowOf("Abc", 2)}).session, BrowserSession({windowOf("bc", 1)}));
  EXPECT_EQ(read({windowOf("aBc", 1)}).session, BrowserSession({windowOf("ac", 1)})) << "the next one";
  EXPECT_EQ(read({windowOf("abC", 2)}).session, BrowserSession({windowOf("ab", 1)})) << "the last one";
}

}  // namespace
