#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "AppleScript/Values/NumberText.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {
namespace {

std::string read(std::string_view text) {
  const auto number = numberFromText(text);
  return number ? sourceForm(*number) : "none";
}

TEST(NumberText, WritesRealsWithAPointOrAnExponent) {
  EXPECT_EQ(numberText(0.0), "0.0");
  EXPECT_EQ(numberText(-0.5), "-0.5");
  EXPECT_EQ(numberText(9999.9), "9999.9");
  EXPECT_EQ(numberText(10000.0), "1.0E+4");
  EXPECT_EQ(numberText(0.001), "0.001");
  EXPECT_EQ(numberText(0.0001), "1.0E-4");
  EXPECT_EQ(numberText(1.25e-7), "1.25E-7");
  EXPECT_EQ(numberText(-1e300), "-1.0E+300");
}

TEST(NumberText, WritesEveryInteger) {
  EXPECT_EQ(numberText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(NumberText, ReadsWhatSpellsANumber) {
  EXPECT_EQ(read("12"), "12");
  EXPECT_EQ(read(" -3 "), "-3");
  EXPECT_EQ(read("+4"), "4");
  EXPECT_EQ(read("1.5"), "1.5");
  EXPECT_EQ(read(".5"), "0.5");
  EXPECT_EQ(read("2e3"), "2000.0");
  EXPECT_EQ(read("99999999999999999999"), "1.0E+20");
}

TEST(NumberText, RefusesEverythingElse) {
  for (const char* text : {"", " ", "abc", "1x", "1 2", "inf", "nan", "0x10", "--1", "+-1", "-", "1e999", "1,5"})
    EXPECT_EQ(read(text), "none") << text;
}

}  // namespace
}  // namespace AppleScript
