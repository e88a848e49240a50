#include <cstdint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/System/Text.h"

namespace {

using namespace DesktopSupport;
using namespace std::literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Separated, YieldsThePartsThatAreNotEmpty) {
  EXPECT_THAT(separated("a:b", ':'), ElementsAre("a", "b"));
  EXPECT_THAT(separated("::a::b:", ':'), ElementsAre("a", "b"));
  EXPECT_THAT(separated("a:b", ' '), ElementsAre("a:b"));
  EXPECT_THAT(separated("", ':'), IsEmpty());
}

TEST(ParseNumber, ReadsTheWholeText) {
  EXPECT_EQ(parseNumber<int>("42"), 42);
  EXPECT_EQ(parseNumber<int>("-7"), -7);
  EXPECT_EQ(parseNumber<int>("1F90", 16), 8080);
  EXPECT_EQ(parseNumber<unsigned char>("2d", 16), '-');
}

TEST(ParseNumber, YieldsNothingForAnythingElse) {
  for (const char* text : {"", " ", "a", "4a", " 4", "4 ", "+4", "4.0", "0x4"})
    EXPECT_EQ(parseNumber<int>(text), std::nullopt) << text;
  EXPECT_EQ(parseNumber<int>("4\0"s), std::nullopt);
}

TEST(ParseNumber, YieldsNothingForANumberThatDoesNotFit) {
  EXPECT_EQ(parseNumber<std::uint16_t>("65535"), 65535);
  EXPECT_EQ(parseNumber<std::uint16_t>("65536"), std::nullopt);
  EXPECT_EQ(parseNumber<std::uint16_t>("-1"), std::nullopt);
}

TEST(UTF8, IsTextWithoutNUL) {
  for (const std::string& text : {""s, "plain"s, "Grüße\n\t 🎈"s, "\uFFFD"s})
    EXPECT_TRUE(isUTF8(text)) << text;
  EXPECT_TRUE(isUTF8({})) << "a view of nothing";
  for (const std::string& text : {"a\xFF"s, "\xC3"s, "\xED\xA0\x80"s, "\xC0\xAF"s, "a\0b"s, "\0"s})
    EXPECT_FALSE(isUTF8(text)) << text;
}

TEST(UTF8, IsTextAlsoIfItIsLong) {
  for (std::size_t place = 0; place < 40; ++place)
    for (const std::string_view other : {"\0"sv, "\x80"sv, "\xFF"sv, "\x7F"sv, "\x01"sv, "é"sv}) {
      std::string text(40, 'a');
      text.replace(place, 1, other);
      EXPECT_EQ(isUTF8(text), other == "\x7F" || other == "\x01" || other == "é") << place;
    }
}

TEST(ValidUTF8, KeepsTextAsItIs) {
  EXPECT_EQ(validUTF8(""), "");
  EXPECT_EQ(validUTF8({}), "") << "a view of nothing";
  EXPECT_EQ(validUTF8("Grüße\n\t 🎈"), "Grüße\n\t 🎈");
}

TEST(ValidUTF8, HasAReplacementForEachByteThatIsNotUTF8) {
  EXPECT_EQ(validUTF8("a\xFF\xC3"), "a\uFFFD\uFFFD");
  EXPECT_EQ(validUTF8("a\0b"s), "a\uFFFDb");
}

}  // namespace
