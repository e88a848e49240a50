#include <gtest/gtest.h>

#include "BrowserSessions/BrowserFiles.h"

namespace BrowserSessions {
namespace {

using namespace std::string_literals;

TEST(BrowserText, ComesFromUtf16) {
  EXPECT_EQ(utf8FromUTF16(""), "");
  EXPECT_EQ(utf8FromUTF16("a\0\xE4\0\xAC\x20"s), "aä€");
  EXPECT_EQ(utf8FromUTF16("\x3C\xD8\x88\xDF"), "🎈") << "a pair of surrogates";
}

TEST(BrowserText, HasAReplacementForASurrogateWithoutItsPartner) {
  EXPECT_EQ(utf8FromUTF16("\x3C\xD8"), "\uFFFD");
  EXPECT_EQ(utf8FromUTF16("\x3C\xD8"s + "a\0"s), "\uFFFDa");
  EXPECT_EQ(utf8FromUTF16("\x88\xDF"s + "a\0"s), "\uFFFDa");
  EXPECT_EQ(utf8FromUTF16("\x3C\xD8\x3C\xD8\x88\xDF"), "\uFFFD🎈");
}

TEST(BrowserText, LeavesOutHalfAUnit) {
  EXPECT_EQ(utf8FromUTF16("a\0b"s), "a");
  EXPECT_EQ(utf8FromUTF16("\x3C\xD8\x88"), "\uFFFD");
  EXPECT_EQ(utf8FromUTF16("\0\0"s), "\uFFFD");
}

}  // namespace
}  // namespace BrowserSessions
