#include <gtest/gtest.h>

#include "AppleScript/Text/CaseFolding.h"

namespace AppleScript {
namespace {

TEST(CaseFolding, KnowsLettersBeyondAscii) {
  EXPECT_EQ(foldCase("ÀÉÎÕÜ ĀŁŽŸ ΆΩΣ ЀЖЯ ԱՖ ẠỸ Ａ"), "àéîõü āłžÿ άωσ ѐжя աֆ ạỹ ａ");
}

TEST(CaseFolding, LeavesOtherCharactersAlone) {
  EXPECT_EQ(foldCase("×÷ßıñ日😀[{@`"), "×÷ßıñ日😀[{@`");
}

TEST(CaseFolding, OrdersByFoldedCharacters) {
  EXPECT_TRUE(compareIgnoringCase("apple", "Banana") < 0);
  EXPECT_TRUE(compareIgnoringCase("ÄB", "äb") == 0);
  EXPECT_TRUE(compareIgnoringCase("ab", "a") > 0);
  EXPECT_TRUE(compareIgnoringCase("", "a") < 0);
}

TEST(CaseFolding, MeetsMalformedBytesWithoutHarm) {
  EXPECT_TRUE(compareIgnoringCase("a\xff", "A\xff") == 0);
}

}  // namespace
}  // namespace AppleScript
