#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "BrowserSessions/Chromium/ToldSession.h"

namespace BrowserSessions {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

CompanionWindow window(std::int64_t number, const std::string& type = "normal", bool isFocused = false) {
  return {.number = number, .type = type, .isFocused = isFocused, .tabs = "a\nTitle\naddress\n"};
}

std::vector<std::int32_t> numbers(std::vector<CompanionAnswer> answers) {
  std::vector<std::int32_t> numbers;
  for (const ChromiumWindow& each : toldSession(std::move(answers)).windows)
    numbers.push_back(each.number);
  return numbers;
}

LoggedSession logged(const std::vector<std::int32_t>& windows, const std::vector<std::int32_t>& others = {}) {
  LoggedSession session{.windows = {}, .otherWindows = others};
  for (const std::int32_t number : windows)
    session.windows.push_back({.number = number, .contents = {}});
  return session;
}

TEST(ToldSession, HasTheWindowThatWasUsedLastAndThenTheOthersAsTheyWereOpened) {
  EXPECT_THAT(numbers({{.windows = {window(3), window(5), window(1), window(4)}}}), ElementsAre(3, 1, 4, 5));
}

TEST(ToldSession, HasTheProfileWithTheFocusFirst) {
  EXPECT_THAT(numbers({{.windows = {window(1), window(2)}},
                       {.windows = {window(9)}},
                       {.windows = {window(4, "normal", true), window(3)}}}),
              ElementsAre(4, 3, 1, 2, 9));
}

TEST(ToldSession, HasNormalWindowsWithTabsAlone) {
  CompanionWindow empty = window(2);
  empty.tabs.clear();
  EXPECT_THAT(numbers({{.windows = {window(1, "popup"), empty, window(3), window(4, "devtools")}}}), ElementsAre(3));
  EXPECT_THAT(numbers({}), IsEmpty());
}

TEST(ToldSession, HasEachWindowOnce) {
  EXPECT_THAT(numbers({{.windows = {window(1), window(2)}}, {.windows = {window(2), window(3)}}}),
              ElementsAre(1, 2, 3));
}

TEST(ToldSession, HasTheTabsOfItsWindows) {
  CompanionWindow two = window(1);
  two.tabs = "\n" + std::string(1001, 'x') + "\na\na\nB\nb\n";
  const auto told = toldSession({{.windows = {two}}});
  ASSERT_EQ(told.windows.size(), 1U);
  EXPECT_EQ(told.windows[0].contents, (BrowserWindow{{{std::string(999, 'x') + "…", "a"}, {"B", "b"}}, 1}));
}

TEST(ToldSession, IsOfTheProfileWhoseLogHasOneOfItsWindows) {
  const ToldSession told = toldSession({{.windows = {window(1), window(2, "popup")}}, {.windows = {window(3)}}});
  EXPECT_EQ(told.profiles, 2U);
  EXPECT_TRUE(hasWindowOf(told, logged({7, 3})));
  EXPECT_TRUE(hasWindowOf(told, logged({}, {8, 2})));
  EXPECT_FALSE(hasWindowOf(told, logged({7}, {8})));
  EXPECT_FALSE(hasWindowOf(told, logged({})));
}

}  // namespace
}  // namespace BrowserSessions
