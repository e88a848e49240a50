#include "Companions/Browser/Host/ExtensionMessage.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <utility>

#include <simdjson.h>

#include "BrowserSessions/JSONText.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace BrowserCompanion {

namespace {

using BrowserSessions::CompanionWindow;
using nlohmann::json;
using simdjson::dom::element;

// Deeper than any message of the extension.
constexpr std::size_t deepest = 16;

const char* const malformed = "The extension sends a malformed message.";

// Takes the value of a key if there is one of the type `T`.
template <typename T>
bool take(element object, std::string_view key, T& value) {
  return object[key].get(value) == simdjson::SUCCESS;
}

bool take(element object, std::string_view key, std::string& value) {
  std::string_view text;
  const bool isText = take(object, key, text);
  value = text;
  return isText;
}

std::optional<CompanionWindow> windowFrom(element object) {
  CompanionWindow window;
  const bool isSound = take(object, "id", window.number) && take(object, "type", window.type) &&
                       take(object, "focused", window.isFocused) && take(object, "tabs", window.tabs) &&
                       BrowserSessions::hasWholeTabs(window);
  return isSound ? std::optional(std::move(window)) : std::nullopt;
}

std::optional<AnswerPart> answerFrom(element object, std::int64_t request) {
  AnswerPart part{.request = request, .windows = {}};
  simdjson::dom::array windows;
  if (!take(object, "isLast", part.isLast) || !take(object, "windows", windows))
    return std::nullopt;
  for (const element each : windows) {
    auto window = windowFrom(each);
    if (!window)
      return std::nullopt;
    part.windows.push_back(std::move(*window));
  }
  return part;
}

std::optional<ExtensionMessage> messageFrom(element object) {
  std::int64_t number = 0;
  if (take(object, "version", number))
    return Greeting{.version = number};
  if (!take(object, "answer", number))
    return std::nullopt;
  Refusal refusal{.request = number, .reason = {}};
  if (take(object, "failed", refusal.reason))
    return refusal;
  return answerFrom(object, number);
}

}  // namespace

std::expected<ExtensionMessage, std::string> extensionMessage(std::string json) {
  BrowserSessions::replaceLoneSurrogates(json);
  json.reserve(json.size() + simdjson::SIMDJSON_PADDING);
  simdjson::dom::parser parser;
  element object;
  if (parser.allocate(json.size(), deepest) != simdjson::SUCCESS || parser.parse(json).get(object) != simdjson::SUCCESS)
    return std::unexpected(malformed);
  auto message = messageFrom(object);
  if (!message)
    return std::unexpected(malformed);
  return std::move(*message);
}

std::string requestMessage(std::int64_t request) {
  return json{{"list", request}}.dump();
}

std::string refusalMessage(const std::string& reason) {
  return json{{"refused", DesktopSupport::displayable(reason)}}.dump();
}

}  // namespace BrowserCompanion
