#include <gtest/gtest.h>

#include "Platform/Text/UTF8.h"

using Platform::stringFromUTF8;
using Platform::utf8Bytes;

TEST(UTF8, PassesUnicodeTextThroughUnchanged) {
  for (const std::string text :
       {"", "plain", "é ß", "日本", "😀", "\xED\x9F\xBF", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    EXPECT_EQ(utf8Bytes(text), text);
    EXPECT_EQ(stringFromUTF8(text), text);
  }
}

TEST(UTF8, RefusesWhatIsNoUnicode) {
  for (const std::string bytes : {"\x80", "a\xFF", "\xC3", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                                  "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82",
                                  "\xF0\x9F\x98", "\xE2\x28\xA1", "\xC3(", "\xE2((", "\xE2\x82(", "\xF0\x9F\x98("}) {
    EXPECT_EQ(utf8Bytes(bytes), std::nullopt);
    EXPECT_EQ(stringFromUTF8(bytes), std::nullopt);
  }
}

TEST(UTF8, RefusesAByteThatIsNoUnicodeAnywhereInALongText) {
  for (std::size_t place = 0; place < 40; ++place) {
    std::string text(40, 'a');
    EXPECT_TRUE(Platform::isUTF8(text));
    text[place] = '\x80';
    EXPECT_FALSE(Platform::isUTF8(text)) << place;
    text.replace(place, 1, "é");
    EXPECT_TRUE(Platform::isUTF8(text)) << place;
  }
}
