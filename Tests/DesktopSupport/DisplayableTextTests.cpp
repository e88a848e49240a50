#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "DesktopSupport/System/DisplayableText.h"

namespace {

using namespace std::string_view_literals;
using DesktopSupport::displayable;
using DesktopSupport::displayableName;
using DesktopSupport::isDisplayable;
using DesktopSupport::lowerCase;
using DesktopSupport::printable;
using DesktopSupport::printableLines;
using DesktopSupport::shortened;
using DesktopSupport::utf8FromLatin1;

TEST(DisplayableText, LeavesOrdinaryTextAsItIs) {
  EXPECT_EQ(displayable("Größe – 日本語 🙂"), "Größe – 日本語 🙂");
  EXPECT_EQ(displayable(""), "");
}

TEST(DisplayableText, TurnsEveryKindOfLineBreakIntoOneSpace) {
  EXPECT_EQ(displayable("a\nb"), "a b");
  EXPECT_EQ(displayable("a\rb"), "a b");
  EXPECT_EQ(displayable("a\r\nb"), "a b");
  EXPECT_EQ(displayable("a\vb\fc"), "a b c");
  EXPECT_EQ(displayable("a\u0085b"), "a b");
  EXPECT_EQ(displayable("a\u2028b\u2029c"), "a b c");
}

TEST(DisplayableText, CountsLineBreaksOneByOne) {
  EXPECT_EQ(displayable("a\n\nb"), "a  b");
  EXPECT_EQ(displayable("a\n\rb"), "a  b");
  EXPECT_EQ(displayable("\r\n\r\n"), "  ");
  EXPECT_EQ(displayable("a\r"), "a ");
}

TEST(DisplayableText, TurnsTabsIntoSpaces) {
  EXPECT_EQ(displayable("a\tb"), "a b");
}

TEST(DisplayableText, DropsOtherControlCharacters) {
  EXPECT_EQ(displayable("a\x01\x1b[1mb\x7f"), "a[1mb");
  EXPECT_EQ(displayable("a\u009bb"), "ab");
}

TEST(DisplayableText, DropsNULAndKeepsWhatFollows) {
  EXPECT_EQ(displayable("a\0b\0"sv), "ab");
}

TEST(DisplayableText, ReplacesEachByteThatIsNotUTF8) {
  EXPECT_EQ(displayable("a\xff"), "a\uFFFD");
  EXPECT_EQ(displayable("\xc3"), "\uFFFD");
  EXPECT_EQ(displayable("\xe2\x82 x"), "\uFFFD\uFFFD x");
  EXPECT_EQ(displayable("Caf\xe9 Bar"), "Caf\uFFFD Bar");
}

TEST(DisplayableText, ReplacesOverlongFormsAndSurrogates) {
  EXPECT_EQ(displayable("\xc0\x8a").find('\n'), std::string::npos);
  EXPECT_EQ(displayable("\xed\xa0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(DisplayableText, PassesTextOfAnyLength) {
  const std::string text(1 << 20, 'x');
  EXPECT_EQ(displayable(text), text);
}

TEST(DisplayableText, ChangesNothingTheSecondTime) {
  const std::string once = displayable("a\r\nb\x01\xff\u2028");
  EXPECT_EQ(displayable(once), once);
  EXPECT_TRUE(isDisplayable(once));
}

TEST(DisplayableText, TellsTextThatNeedsNoChange) {
  EXPECT_TRUE(isDisplayable("/usr/bin/größe"));
  EXPECT_FALSE(isDisplayable("/tmp/a\nb"));
  EXPECT_FALSE(isDisplayable("/tmp/\xff"));
  EXPECT_FALSE(isDisplayable("a\0"sv));
}

TEST(DisplayableText, IsPrintedWithoutWhatATerminalObeys) {
  EXPECT_EQ(printable("Größe – 日本語 👩\u200D🔬"), "Größe – 日本語 👩\u200D🔬");
  EXPECT_EQ(printable("a\x1b]0;b\x07\nc\u009bd\xff"), "a]0;b cd\uFFFD");
}

TEST(DisplayableText, IsPrintedInTheOrderThatItHas) {
  EXPECT_EQ(printable("a\u202Egpj.exe"), R"(a\u{202E}gpj.exe)");
  EXPECT_EQ(printable("\u061C\u200E\u200F"), R"(\u{061C}\u{200E}\u{200F})");
  EXPECT_EQ(printable("\u202A\u202B\u202C\u202D\u202E"), R"(\u{202A}\u{202B}\u{202C}\u{202D}\u{202E})");
  EXPECT_EQ(printable("\u2066\u2067\u2068\u2069"), R"(\u{2066}\u{2067}\u{2068}\u{2069})");
  EXPECT_EQ(printable("\u061B\u200D\u2010\u202F\u2065\u206A"), "\u061B\u200D\u2010\u202F\u2065\u206A")
      << "none of these";
}

TEST(DisplayableText, IsPrintedLineByLine) {
  EXPECT_EQ(printableLines("a\x1b\n\r\nb\rc\u202E\u2028\n"), "a\n\nb c\\u{202E} \n");
  EXPECT_EQ(printableLines(""), "");
}

std::string repeated(std::string_view text, std::size_t count) {
  std::string all;
  for (std::size_t round = 0; round < count; ++round)
    all += text;
  return all;
}

TEST(DisplayableText, LeavesTextsOfAThousandCharactersAsTheyAre) {
  for (const std::string_view character : {"x", "ü", "日", "🙂"})
    EXPECT_EQ(shortened(repeated(character, 1000)), repeated(character, 1000)) << character;
  EXPECT_EQ(shortened(repeated("\xff", 1000)), repeated("\xff", 1000));
  EXPECT_EQ(shortened(""), "");
}

TEST(DisplayableText, CutsLongerTextsBetweenTwoCharacters) {
  for (const std::size_t count : {1001U, 1335U, 2000U, 1U << 20U})
    for (const std::string_view character : {"x", "ü", "日", "🙂"})
      EXPECT_EQ(shortened(repeated(character, count)), repeated(character, 999) + "…") << character << count;
  for (const std::string_view start : {"x", "xx", "xxx"})
    EXPECT_EQ(shortened(std::string(start) + repeated("🙂", 5000)),
              std::string(start) + repeated("🙂", 999 - start.size()) + "…");
}

TEST(DisplayableText, CutsTextsThatAreNotUTF8) {
  EXPECT_EQ(shortened(repeated("\xff", 1001)), repeated("\uFFFD", 999) + "…");
  EXPECT_EQ(shortened(repeated("\x80", 5000)), repeated("\uFFFD", 999) + "…");
  EXPECT_EQ(shortened(std::string(5000, '\0')), repeated("\uFFFD", 999) + "…");
}

TEST(DisplayableText, CutsNothingTheSecondTime) {
  const std::string once = shortened(repeated("🙂", 5000));
  EXPECT_EQ(shortened(once), once);
}

TEST(DisplayableText, MakesNamesOfOneShortLine) {
  EXPECT_EQ(displayableName("a\nb\x1b"), "a b");
  EXPECT_EQ(displayableName(repeated("x\n", 5000)), repeated("x ", 499) + "x…");
}

TEST(DisplayableText, ReadsLatin1) {
  EXPECT_EQ(utf8FromLatin1("Caf\xe9"), "Café");
  EXPECT_EQ(utf8FromLatin1("\xa0\xff"), "\u00a0ÿ");
  EXPECT_EQ(utf8FromLatin1("plain"), "plain");
}

TEST(DisplayableText, LowersLettersOfAnyScript) {
  EXPECT_EQ(lowerCase("XTerm"), "xterm");
  EXPECT_EQ(lowerCase("ÄÖ Ω"), "äö ω");
}

TEST(DisplayableText, LowersWhatIsNotUTF8WithoutHarm) {
  EXPECT_EQ(lowerCase("A\xff"), "a\uFFFD");
}

}  // namespace
