#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "AppleScript/Script.h"
#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DeskloomSDK/JSON/JSONText.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "Fuzz/Target.h"
#include "Platform/Text/UTF8.h"

namespace {

class NoApplications : public AppleScript::ApplicationDirectory {
 public:
  [[nodiscard]] AppleScript::Application* find(std::string_view /*name*/) override { return nullptr; }
};

bool hasBareSlash(std::string_view text) {
  for (std::size_t index = text.find('/'); index != std::string_view::npos; index = text.find('/', index + 1))
    if (index == 0 || text[index - 1] != '\\')
      return true;
  return false;
}

void requireWellWritten(std::string_view text) {
  Fuzz::requireUTF8(text);
  Fuzz::require(!hasBareSlash(text), "Every slash is escaped.");
}

void requireRoundTrip(const nlohmann::json& value) {
  const auto text = DeskloomSDK::encodeJSON(value);
  Fuzz::require(text.has_value(), "A value that was read can be written.");
  requireWellWritten(*text);
  const auto again = DeskloomSDK::decodeJSON(*text);
  Fuzz::require(again && *again == value, "The written text can be read and yields the same value.");
  Fuzz::require(DeskloomSDK::encodeJSON(*again).value_or("") == *text, "Writing it again yields the same text.");
}

void requireRoundTrip(const std::vector<DeskloomSDK::Resource>& resources) {
  const auto text = DeskloomSDK::encodeResources(resources);
  Fuzz::require(text.has_value(), "Resources that were read can be written.");
  requireWellWritten(*text);
  const auto again = DeskloomSDK::decodeResources(*text);
  Fuzz::require(again && again->size() == resources.size(), "Resources that were written can be read.");
  Fuzz::require(DeskloomSDK::encodeResources(*again).value_or("") == *text,
                "Writing resources again yields the same text.");
}

// A configuration is sent to the host in a script.
void requireSameInScript(std::string_view text) {
  NoApplications applications;
  const std::string source = "return \"" + DeskloomSDK::escapeForScript(text) + "\"";
  const auto script = AppleScript::Script::compile(source, applications);
  Fuzz::require(script.has_value(), "An escaped text does not end a script's literal.");
  const std::optional<AppleScript::Value> value = script->run().value_or(std::nullopt);
  Fuzz::require(value && value->stringValue() == text, "An escaped text has the same value in a script.");
}

}  // namespace

// The input is JSON text: a plug-in's settings as the host keeps them, or resources as they are sent to it.
void Fuzz::run(std::string_view input) {
  if (const auto value = DeskloomSDK::decodeJSON(input))
    requireRoundTrip(*value);
  if (const auto resources = DeskloomSDK::decodeResources(input))
    requireRoundTrip(*resources);
  if (Platform::stringFromUTF8(std::string(input)))
    requireSameInScript(input);
}
