#include <string>

#include <gtest/gtest.h>

#include "BrowserSessions/JSONText.h"

namespace {

std::string cut(std::string json, std::size_t maximumSize = 4) {
  BrowserSessions::cutLongTokens(json, maximumSize);
  return json;
}

TEST(LongTokens, CutsEachStringThatIsTooLong) {
  EXPECT_EQ(cut(R"({"key":["abcd","abcde",""],"other":"abcdefgh"})"), R"({"key":["abcd","abcd",""],"othe":"abcd"})");
}

TEST(LongTokens, CutsNumbersToo) {
  EXPECT_EQ(cut("[1234,12345,-1.5e+10, 12]"), "[1234,1234,-1.5, 12]");
}

TEST(LongTokens, LeavesWhatIsBetweenThem) {
  const std::string json = "{ } [  null ,\n\n\n\n\n\n\n true,false,[[[[[[[[[]]]]]]]]]";
  EXPECT_EQ(cut(json), json);
}

TEST(LongTokens, KeepsTheEscapeAtTheCutWhole) {
  EXPECT_EQ(cut(R"(["abc\"efg",1])"), R"(["abc\"",1])");
  EXPECT_EQ(cut(R"(["abc\u0041efg",1])"), R"(["abc\u0041",1])");
  EXPECT_EQ(cut(R"(["ab\\\\\\\\",1])"), R"(["ab\\",1])");
  EXPECT_EQ(cut(R"(["abcd\"\\\u0041",1])"), R"(["abcd",1])");
}

TEST(LongTokens, TakesTheQuoteInAStringForItsEndOnlyIfItIsNotEscaped) {
  EXPECT_EQ(cut(R"(["\\","abcdef"])"), R"(["\\","abcd"])");
  EXPECT_EQ(cut(R"(["\"","a\"","abcdef"])"), R"(["\"","a\"","abcd"])");
}

TEST(LongTokens, DoesNoHarmToWhatIsNoJSON) {
  for (const std::string text : {"", "\"", "\"\\", "\"\\u", "\"\\u00\"", "abc", "\xff\"\xff"})
    EXPECT_EQ(cut(text), text);
  EXPECT_EQ(cut("\"abcdef"), "\"abcd");
}

}  // namespace
