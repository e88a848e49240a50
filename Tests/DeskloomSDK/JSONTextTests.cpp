#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include <gtest/gtest.h>

#include "DeskloomSDK/JSON/JSONText.h"

using DeskloomSDK::appendString;
using DeskloomSDK::decodeJSON;
using DeskloomSDK::encodeJSON;
using nlohmann::json;

namespace {

std::string nested(std::size_t levels) {
  return std::string(levels, '[') + std::string(levels, ']');
}

TEST(JSONText, IsCompactAndEscapesSlashes) {
  EXPECT_EQ(encodeJSON(json{{"a/b", json::array({1, "c/d", nullptr, 0.5, "é🙂"})}}),
            R"({"a\/b":[1,"c\/d",null,0.5,"é🙂"]})");
}

TEST(JSONText, HasNoControlCharacters) {
  EXPECT_EQ(encodeJSON(std::string("\0\n\x1f", 3)), R"("\u0000\n\u001f")");
}

TEST(JSONText, HasEachCharacterOfAStringAsJSONWantsIt) {
  for (int byte = 0; byte < 0x80; ++byte)
    for (const std::string_view rest : {"", "a", "é/", "\n"}) {
      const std::string string = "a/" + std::string(1, static_cast<char>(byte)) + std::string(rest);
      std::string text = "[";
      EXPECT_TRUE(appendString(text, string));
      EXPECT_EQ(text + "]", encodeJSON(json::array({string})));
      EXPECT_EQ(decodeJSON(text + "]"), json::array({string}));
    }
}

TEST(JSONText, IsNotMadeOfAStringThatIsNotUTF8) {
  for (const std::string_view string : {"\xFF", "a\xC3", "\n\xED\xA0\x80", "plain until the end\x80"}) {
    std::string text;
    EXPECT_FALSE(appendString(text, string));
  }
}

TEST(JSONText, IsNotMadeOfWhatJSONCannotSay) {
  EXPECT_FALSE(encodeJSON("\xc3"));
  EXPECT_FALSE(encodeJSON(json::array({1, json{{"k", std::numeric_limits<double>::infinity()}}})));
  EXPECT_FALSE(encodeJSON(-std::numeric_limits<double>::quiet_NaN()));
}

TEST(JSONText, IsReadBackAsItWas) {
  const json value = {{"k", json::array({1, -2.5, "x/\"\\\n", true, nullptr, json::object()})}};
  EXPECT_EQ(decodeJSON(*encodeJSON(value)), value);
}

TEST(JSONText, IsNotReadIfItIsMalformed) {
  for (const char* text : {"", "{", "]", "nul", "{\"a\":}", "1 2", "\"\xff\"", "'a'", "[1,]", "NaN"})
    EXPECT_FALSE(decodeJSON(text)) << text;
}

TEST(JSONText, IsReadDownToALimit) {
  EXPECT_TRUE(decodeJSON(nested(512)));
  EXPECT_FALSE(decodeJSON(nested(513)));
  EXPECT_FALSE(decodeJSON(nested(1'000'000)));
  EXPECT_FALSE(decodeJSON(std::string(1'000'000, '[')));
}

TEST(JSONText, HasNoLimitSideBySide) {
  std::string text = "[[]";
  for (int i = 0; i < 1000; ++i)
    text += i % 2 == 0 ? ",{}" : ",[]";
  EXPECT_TRUE(decodeJSON(text + "]"));
}

TEST(JSONText, CountsNoBracketsInStrings) {
  const std::string text = "\"\\\"" + std::string(1000, '[') + "\\\\\"";
  ASSERT_TRUE(decodeJSON(text));
  EXPECT_FALSE(decodeJSON("[\"\\\\\"," + nested(512) + "]"));
}

}  // namespace
