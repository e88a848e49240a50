#include <string>
#include <variant>

#include <gmock/gmock.h>

#include "Companions/Browser/Host/ExtensionMessage.h"

namespace BrowserCompanion {
namespace {

using BrowserSessions::CompanionTab;
using BrowserSessions::CompanionWindow;

ExtensionMessage message(const std::string& json) {
  return extensionMessage(json).value();
}

TEST(ExtensionMessage, IsAGreeting) {
  EXPECT_EQ(message(R"({"version": 1})"), ExtensionMessage(Greeting{1}));
  EXPECT_EQ(message(R"({"version": -7, "more": []})"), ExtensionMessage(Greeting{-7}));
}

TEST(ExtensionMessage, IsAPartOfAnAnswer) {
  const AnswerPart part{.request = 3,
                        .windows = {{.number = 7, .type = "normal", .isFocused = true, .tabs = "a\nA\na\npl\nB\nb\n"},
                                    {.number = -1, .type = "popup", .isFocused = false, .tabs = ""}},
                        .isLast = true};
  EXPECT_EQ(message(R"({"answer": 3, "isLast": true, "windows": [
                        {"id": 7, "type": "normal", "focused": true,
                         "tabs": "a\nA\na\npl\nB\nb\n"},
                        {"id": -1, "type": "popup", "focused": false, "tabs": ""}]})"),
            ExtensionMessage(part));
  EXPECT_EQ(message(R"({"answer": 0, "isLast": false, "windows": []})"), ExtensionMessage(AnswerPart{}));
}

TEST(ExtensionMessage, IsTheReasonWhyThereIsNoAnswer) {
  EXPECT_EQ(message(R"({"answer": 3, "failed": "Why"})"), ExtensionMessage(Refusal{3, "Why"}));
}

TEST(ExtensionMessage, MayHaveSurrogatesWithoutPartners) {
  EXPECT_EQ(message(R"({"answer": 3, "failed": "\ud83d\ude00 \ud83d \ude00"})"),
            ExtensionMessage(Refusal{3, "😀 \uFFFD \uFFFD"}));
}

TEST(ExtensionMessage, IsRefusedIfItIsNone) {
  for (const char* json :
       {"", "{", "null", "[]", "7", "{}", R"({"version": "1"})", R"({"version": 1.5})",
        R"({"version": 18446744073709551615})", R"({"answer": 1})", R"({"answer": "1", "failed": "x"})",
        R"({"answer": 1, "failed": 2})", R"({"answer": 1, "windows": []})", R"({"answer": 1, "isLast": true})",
        R"({"answer": 1, "isLast": 1, "windows": []})", R"({"answer": 1, "isLast": true, "windows": {}})",
        R"({"answer": 1, "isLast": true, "windows": [7]})", R"({"version": 1} more)", "{\"version\": 1}\xFF"})
    EXPECT_EQ(extensionMessage(json).error(), "The extension sends a malformed message.") << json;
}

TEST(ExtensionMessage, IsRefusedIfAWindowInItIsMalformed) {
  const auto with = [](const std::string& window) {
    return R"({"answer": 1, "isLast": true, "windows": [)" + window + "]}";
  };
  EXPECT_TRUE(extensionMessage(with(R"({"id": 7, "type": "normal", "focused": true, "tabs": ""})")));
  for (const char* window :
       {R"({"type": "normal", "focused": true, "tabs": ""})", R"({"id": 7, "focused": true, "tabs": ""})",
        R"({"id": 7, "type": "normal", "tabs": ""})", R"({"id": 7, "type": "normal", "focused": true})",
        R"({"id": 7, "type": "normal", "focused": true, "tabs": []})",
        R"({"id": "7", "type": "normal", "focused": true, "tabs": ""})",
        R"({"id": 7, "type": null, "focused": true, "tabs": ""})",
        R"({"id": 7, "type": "normal", "focused": 1, "tabs": ""})",
        R"({"id": 7, "type": "normal", "focused": true, "tabs": "a\nA\n"})",
        R"({"id": 7, "type": "normal", "focused": true, "tabs": "a\nA\na\nb"})"})
    EXPECT_FALSE(extensionMessage(with(window))) << window;
}

TEST(ExtensionMessage, MayNotBeNestedDeeply) {
  EXPECT_TRUE(extensionMessage(R"({"version": 1, "more": [[[[[]]]]]})"));
  EXPECT_FALSE(
      extensionMessage(R"({"version": 1, "more": )" + std::string(100000, '[') + std::string(100000, ']') + "}"));
}

TEST(ExtensionMessage, IsAskedForByANumber) {
  EXPECT_EQ(requestMessage(12), R"({"list":12})");
}

TEST(ExtensionMessage, IsRefusedWithAReasonInOneLine) {
  EXPECT_EQ(refusalMessage("Not \"so\"\n\xFF"), "{\"refused\":\"Not \\\"so\\\" \uFFFD\"}");
}

}  // namespace
}  // namespace BrowserCompanion
