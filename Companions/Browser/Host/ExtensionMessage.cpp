#include "Companions/Browser/Host/ExtensionMessage.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "BrowserSessions/JSONText.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace BrowserCompanion {

namespace {

using BrowserSessions::CompanionWindow;
using nlohmann::json;

// Deeper than any message of the extension.
constexpr int deepest = 16;

const char* const malformed = "The extension sends a malformed message.";

// The value of a key; null if there is none.
json& valueOf(json& object, const char* key) {
  static json null;
  null = nullptr;
  const auto found = object.is_object() ? object.find(key) : object.end();
  return found != object.end() ? *found : null;
}

// Takes the value if it has the type `T`.
template <typename T>
bool take(json& value, T& taken) {
  T* const typed = value.get_ptr<T*>();
  if (typed != nullptr)
    taken = std::move(*typed);
  return typed != nullptr;
}

// The parser makes numbers without a sign unsigned.
bool take(json& value, std::int64_t& taken) {
  if (!value.is_number_integer() ||
      (value.is_number_unsigned() && !std::in_range<std::int64_t>(value.get<std::uint64_t>())))
    return false;
  taken = value.get<std::int64_t>();
  return true;
}

std::optional<CompanionWindow> windowFrom(json& object) {
  CompanionWindow window;
  const bool isSound = take(valueOf(object, "id"), window.number) && take(valueOf(object, "type"), window.type) &&
                       take(valueOf(object, "focused"), window.isFocused) &&
                       take(valueOf(object, "tabs"), window.tabs) && BrowserSessions::hasWholeTabs(window);
  return isSound ? std::optional(std::move(window)) : std::nullopt;
}

std::optional<AnswerPart> answerFrom(json& object, std::int64_t request) {
  AnswerPart part{.request = request, .windows = {}};
  json& windows = valueOf(object, "windows");
  if (!take(valueOf(object, "isLast"), part.isLast) || !windows.is_array())
    return std::nullopt;
  for (json& each : windows) {
    auto window = windowFrom(each);
    if (!window)
      return std::nullopt;
    part.windows.push_back(std::move(*window));
  }
  return part;
}

std::optional<ExtensionMessage> messageFrom(json& object) {
  std::int64_t number = 0;
  if (take(valueOf(object, "version"), number))
    return Greeting{.version = number};
  if (!take(valueOf(object, "answer"), number))
    return std::nullopt;
  Refusal refusal{.request = number, .reason = {}};
  if (take(valueOf(object, "failed"), refusal.reason))
    return refusal;
  return answerFrom(object, number);
}

// The parser needs memory for each level.
json parsed(const std::string& text) {
  bool isTooDeep = false;
  const auto isWanted = [&isTooDeep](int depth, json::parse_event_t /*event*/, const json& /*value*/) {
    isTooDeep = isTooDeep || depth > deepest;
    return !isTooDeep;
  };
  json value = json::parse(text, isWanted, /*allow_exceptions=*/false);
  return isTooDeep ? json() : value;
}

}  // namespace

std::expected<ExtensionMessage, std::string> extensionMessage(std::string json) {
  BrowserSessions::replaceLoneSurrogates(json);
  auto object = parsed(json);
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
