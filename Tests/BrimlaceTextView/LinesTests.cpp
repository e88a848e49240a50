#include <gmock/gmock.h>

#include "BrimlaceTextView/Lines.h"

using BrimlaceTextView::lines;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Lines, AreWhatLineFeedsEnd) {
  EXPECT_THAT(lines("a\nb\n"), ElementsAre("a", "b"));
  EXPECT_THAT(lines("a\nb"), ElementsAre("a", "b"));
}

TEST(Lines, KeepTheEmptyOnesInside) {
  EXPECT_THAT(lines("\n\na\n\n"), ElementsAre("", "", "a", ""));
}

TEST(Lines, AreNoneInAnEmptyText) {
  EXPECT_THAT(lines(""), IsEmpty());
}

TEST(Lines, EndAtNothingButALineFeed) {
  EXPECT_THAT(lines("a\rb\r\nc\v\f\u0085\u2028d"), ElementsAre("a\rb\r", "c\v\f\u0085\u2028d"));
}
