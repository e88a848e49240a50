#include <string>

#include <gtest/gtest.h>

#include "AppleScript/Text/Text.h"

namespace AppleScript {
namespace {

TEST(Text, IsEmptyByDefault) {
  EXPECT_EQ(Text().view(), "");
  EXPECT_TRUE(Text("").empty());
  EXPECT_EQ(Text().characterCount(), 0U);
}

TEST(Text, AppendingLeavesTheOriginalAsItWas) {
  const Text start("ab");
  const Text longer = start.appending("cd");
  EXPECT_EQ(start.view(), "ab");
  EXPECT_EQ(longer.view(), "abcd");
}

TEST(Text, TwoContinuationsOfOneTextDoNotMix) {
  const Text start = Text("a").appending("b");
  const Text first = start.appending("first");
  const Text second = start.appending("second");
  EXPECT_EQ(first.view(), "abfirst");
  EXPECT_EQ(second.view(), "absecond");
  EXPECT_EQ(start.view(), "ab");
}

TEST(Text, AppendsInPlaceWhereItEndsItsBuffer) {
  const Text start = Text("a").appending("b");
  const Text longer = start.appending("c");
  EXPECT_EQ(longer.view().data(), start.view().data());
}

TEST(Text, AppendingToALiteralNeverTouchesIt) {
  const Text literal("ab");
  EXPECT_NE(literal.appending("c").view().data(), literal.view().data());
}

TEST(Text, CanBeAppendedToItself) {
  Text text = Text("ab").appending("c");
  for (int i = 0; i < 6; ++i)
    text = text.appending(text.view());
  std::string expected;
  for (int i = 0; i < 64; ++i)
    expected += "abc";
  EXPECT_EQ(text.view(), expected);
}

TEST(Text, ViewsStayValidWhileTheTextGrows) {
  const Text start = Text("x").appending("y");
  const std::string_view view = start.view();
  Text text = start;
  for (int i = 0; i < 10000; ++i)
    text = text.appending("0123456789");
  EXPECT_EQ(view, "xy");
  EXPECT_EQ(text.size(), 100002U);
}

TEST(Text, AppendingNothingSharesTheText) {
  const Text text("ab");
  EXPECT_EQ(text.appending("").view().data(), text.view().data());
}

TEST(Text, CountsUnicodeCharacters) {
  EXPECT_EQ(Text("añ日😀").characterCount(), 4U);
}

TEST(Text, FindsCharactersByNumberThroughoutALongText) {
  Text text;
  for (int i = 0; i < 1000; ++i)
    text = text.appending(i % 3 == 0 ? "ü" : "a");
  EXPECT_EQ(text.characterCount(), 1000U);
  EXPECT_EQ(text.characters(0, 1), "ü");
  EXPECT_EQ(text.characters(999, 1), "ü");
  EXPECT_EQ(text.characters(64, 3), "aaü");
  EXPECT_EQ(text.characters(500, 2), "aü");
}

TEST(Text, CountsAShorterTextThatSharesALongerOnesBuffer) {
  const Text start = Text("ä").appending("b");
  const Text longer = start.appending(std::string(500, 'x'));
  EXPECT_EQ(longer.characterCount(), 502U);
  EXPECT_EQ(start.characterCount(), 2U);
}

}  // namespace
}  // namespace AppleScript
