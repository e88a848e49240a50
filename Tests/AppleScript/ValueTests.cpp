#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Values/Value.h"
#include "Tests/AppleScript/TestApplications.h"

namespace AppleScript {
namespace {

TEST(Value, IsMissingByDefault) {
  EXPECT_TRUE(Value().isMissing());
  EXPECT_EQ(Value().stringValue(), std::nullopt);
}

TEST(Value, TextIsItsOwnStringValue) {
  EXPECT_EQ(Value("a\nb").stringValue(), "a\nb");
  EXPECT_EQ(Value(std::string("")).stringValue(), "");
}

TEST(Value, NumbersAreWrittenAsTheLanguageDoes) {
  EXPECT_EQ(Value(-7).stringValue(), "-7");
  EXPECT_EQ(Value(1.0).stringValue(), "1.0");
  EXPECT_EQ(Value(1e20).stringValue(), "1.0E+20");
  EXPECT_EQ(Value(std::size_t{3}).stringValue(), "3");
}

TEST(Value, BooleansAreWords) {
  EXPECT_EQ(Value(true).stringValue(), "true");
  EXPECT_EQ(Value(false).stringValue(), "false");
}

TEST(Value, AFileIsItsPath) {
  EXPECT_EQ(Value(File("/a b")).stringValue(), "/a b");
}

TEST(Value, AListIsItsItemsTogether) {
  EXPECT_EQ(Value(List{1, "a", List{true}}).stringValue(), "1atrue");
}

TEST(Value, AListWithoutATextFormHasNone) {
  EXPECT_EQ(Value(List{1, Value()}).stringValue(), std::nullopt);
  EXPECT_EQ(Value(List{ObjectPointer(Testing::someThings())}).stringValue(), std::nullopt);
}

TEST(Value, ARecordHasNoTextForm) {
  const auto labels = std::make_shared<const std::vector<std::string>>(1, "a");
  EXPECT_EQ(Value(Record(labels, {1})).stringValue(), std::nullopt);
}

TEST(Value, AnObjectHasNoTextForm) {
  const ObjectPointer object = Testing::someThings();
  EXPECT_EQ(Value(object).stringValue(), std::nullopt);
}

TEST(Value, AReferenceToAnItemIsReadThrough) {
  EXPECT_EQ(Value(ItemReference{List{"a", "b"}, 1}).stringValue(), "b");
  EXPECT_EQ(Value(ItemReference{List{"a", "b"}, 2}).stringValue(), std::nullopt);
}

TEST(Value, CopiesOfAListShareTheirItems) {
  List list{1};
  const Value value(list);
  list.append(2);
  EXPECT_EQ(value.stringValue(), "12");
}

TEST(Value, NothingIsCoercedByAskingForItsKind) {
  const Value value("1");
  EXPECT_EQ(value.getIf<std::int64_t>(), nullptr);
  ASSERT_NE(value.getIf<Text>(), nullptr);
  EXPECT_EQ(value.getIf<Text>()->view(), "1");
}

}  // namespace
}  // namespace AppleScript
