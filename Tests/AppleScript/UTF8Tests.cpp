#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "AppleScript/Text/UTF8.h"

namespace UTF8 = AppleScript::UTF8;

TEST(UTF8, WritesCharactersOfEachLength) {
  std::string text;
  for (const char32_t character : {U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\uFFFF', U'\U00010000', U'\U0010FFFF'})
    UTF8::append(text, character);
  EXPECT_EQ(text,
            "\x7F"
            "\xC2\x80"
            "\xDF\xBF"
            "\xE0\xA0\x80"
            "\xEF\xBF\xBF"
            "\xF0\x90\x80\x80"
            "\xF4\x8F\xBF\xBF");
}
