#include "AppleScriptTool/ScriptRun.h"

#include <optional>

#include "AppleScript/Script.h"
#include "AppleScript/Values/SourceForm.h"
#include "Platform/Text/UTF8.h"
#include "ScriptableApps/ScriptableApplications.h"

namespace AppleScriptTool {

namespace {

using AppleScript::Value;

// "12:17: execution error: Can’t get tab 3. (-1728)", counted in characters from the start of the script.
std::string report(const AppleScript::ScriptError& error, const char* kind) {
  const std::string range =
      std::to_string(error.range.start) + ':' + std::to_string(error.range.start + error.range.length);
  return range + ": " + kind + ": " + error.message + " (" + std::to_string(static_cast<int>(error.number)) + ')';
}

std::string line(const Value& value) {
  const auto* text = value.getIf<AppleScript::Text>();
  return (text != nullptr ? value.stringValue().value_or("") : sourceForm(value)) + '\n';
}

}  // namespace

std::expected<std::string, std::string> runScript(const std::string& source) {
  if (!Platform::utf8Bytes(source))
    return std::unexpected("the script is not UTF-8");
  ScriptableApps::ScriptableApplications applications;
  const auto script = AppleScript::Script::compile(source, applications);
  if (!script)
    return std::unexpected(report(script.error(), "syntax error"));
  const auto result = script->run();
  if (!result)
    return std::unexpected(report(result.error(), "execution error"));
  const std::optional<Value>& value = *result;
  return value ? line(*value) : std::string();
}

}  // namespace AppleScriptTool
