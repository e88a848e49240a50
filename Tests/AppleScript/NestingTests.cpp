#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"
#include "Tests/AppleScript/TestApplications.h"

namespace AppleScript::Testing {
namespace {

constexpr int million = 1000000;
constexpr int manyLevels = 100000;

std::string times(int count, std::string_view text) {
  std::string result;
  result.reserve(static_cast<std::size_t>(count) * text.size());
  for (int i = 0; i < count; ++i)
    result += text;
  return result;
}

/// The error of compiling or running `source`, or its value.
std::string outcome(const std::string& source) {
  TestApplications applications;
  const auto result = applications.run(source);
  if (!result)
    return std::to_string(static_cast<int>(result.error().number));
  return *result ? sourceForm(**result) : "nothing";
}

class TooDeep : public testing::TestWithParam<const char*> {};

TEST_P(TooDeep, IsASyntaxErrorHoweverDeep) {
  EXPECT_EQ(outcome(times(manyLevels, GetParam())), "-2741");
  EXPECT_EQ(outcome(times(maximumNesting + 1, GetParam())), "-2741");
}

INSTANTIATE_TEST_SUITE_P(Sources, TooDeep,
                         testing::Values("+ ", "{a:", "get ", "exists ", "my ", "count ", "1 + (", "2 ^ (", "item (",
                                         "window (", "tell it to ", "if true then ", "if true\n", "repeat\n",
                                         "repeat 1 times\n", "try\n", "every item whose ", "items of {} whose (",
                                         "set x to (", "its ", "text 1 thru ", "return ("));

class AMillionLevels : public testing::TestWithParam<const char*> {};

TEST_P(AMillionLevels, AreASyntaxError) {
  EXPECT_EQ(outcome(times(million, GetParam())), "-2741");
}

INSTANTIATE_TEST_SUITE_P(Sources, AMillionLevels, testing::Values("(", "not ", "- ", "{", "tell it\n", "1 of "));

TEST(Nesting, ReachesItsLimit) {
  const int depth = static_cast<int>(maximumNesting) - 2;
  EXPECT_EQ(outcome(times(depth, "(") + "1" + times(depth, ")")), "1");
  EXPECT_EQ(outcome(times(depth, "tell it\n") + "1\n" + times(depth, "end tell\n")), "1");
}

TEST(Nesting, OfCommentsHasNoLimit) {
  EXPECT_EQ(outcome(times(million, "(*") + times(million, "*)") + "1"), "1");
}

TEST(Nesting, ALongChainOfOneOperatorIsNotDeep) {
  EXPECT_EQ(outcome("0" + times(100000, " + 1")), "100000");
  EXPECT_EQ(outcome("1" + times(100000, " ^ 1")), "1.0");
  EXPECT_EQ(outcome("length of (\"\"" + times(100000, " & \"ab\"") + ")"), "200000");
}

TEST(Nesting, ALongChainOfReferencesIsNotDeep) {
  EXPECT_EQ(outcome("set l to {1}\nset item 1 of l to l\n1 = length of " + times(manyLevels, "item 1 of ") + "l"),
            "true");
  EXPECT_EQ(outcome("set l to {1}\nset item 1 of l to l\n1 = length of (l" + times(manyLevels, "'s item 1") + ")"),
            "true");
}

constexpr std::string_view deepList = "set l to {}\nrepeat 100000 times\nset l to {l}\nend repeat\n";

TEST(Nesting, ListsThatNestAMillionDeepCanBeLetGo) {
  EXPECT_EQ(outcome(std::string(deepList) + "count l"), "1");
}

TEST(Nesting, RecordsThatNestAMillionDeepCanBeLetGo) {
  EXPECT_EQ(outcome("set r to {a:1}\nrepeat 1000000 times\nset r to {a:r}\nend repeat\ncount r"), "1");
}

TEST(Nesting, ReferencesThatNestAMillionDeepCanBeLetGo) {
  EXPECT_EQ(outcome("set l to {1}\nrepeat 1000000 times\nrepeat with x in l\nset l to {x}\nend repeat\nend repeat\n5"),
            "5");
}

TEST(Nesting, WhatWorksOnWholeListsRefusesThoseThatAreTooDeep) {
  const std::string deep(deepList);
  EXPECT_EQ(outcome(deep + "l as text"), "-2706");
  EXPECT_EQ(outcome(deep + "\"\" & l"), "-2706");
  EXPECT_EQ(outcome(deep + "l as number"), "-2706");
  EXPECT_EQ(outcome(deep + "copy l to m"), "-2706");
  EXPECT_EQ(outcome(deep + "set m to l\n" + std::string(deepList) + "l = m"), "-2706");
  EXPECT_EQ(outcome(deep + "set m to l\n" + std::string(deepList) + "{l} contains {m}"), "-2706");
}

TEST(Nesting, ADeepResultIsHandedOver) {
  TestApplications applications;
  const auto result = applications.run(std::string(deepList) + "l");
  ASSERT_TRUE(result.has_value());
  ASSERT_TRUE(result->has_value());
  EXPECT_EQ((*result)->stringValue(), std::nullopt);
  EXPECT_TRUE(sourceForm(**result).starts_with("{{{{"));
}

TEST(Nesting, ErrorMessagesAboutDeepListsAreShort) {
  EXPECT_EQ(outcome(std::string(deepList) + "try\nfoo of l\non error m\nlength of m < 300\nend try"), "true");
}

TEST(Nesting, ListsThatHoldThemselvesAreLetGo) {
  EXPECT_EQ(outcome("set a to {1}\nset b to {a}\nset item 1 of a to b\nset r to {x:1}\nset x of r to {r}\ncount a"),
            "1");
  EXPECT_EQ(outcome("set a to {1}\nrepeat with x in a\nset contents of x to x\nend repeat\ncount a"), "1");
  EXPECT_EQ(outcome("set a to {1}\nrepeat with x in a\nset contents of x to x\nend repeat\nitem 1 of a + 1"), "-2706");
}

}  // namespace
}  // namespace AppleScript::Testing
