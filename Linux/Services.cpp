#include "Linux/Services.h"

#include "AppleScript/Script.h"
#include "DesktopSupport/System/SystemLog.h"
#include "Platform/Text/UTF8.h"
#include "ScriptableApps/ScriptableApplications.h"

namespace Linux {

namespace {

Platform::ScriptOutcome failure(const AppleScript::ScriptError& error) {
  return {.error = Platform::ScriptErrorInformation{.number = static_cast<int>(error.number),
                                                    .message = error.message,
                                                    .rangeStart = error.range.start,
                                                    .rangeLength = error.range.length,
                                                    .applicationName = error.applicationName}};
}

}  // namespace

void Log::write(std::string_view message) {
  DesktopSupport::writeLinesToSystemLog(message);
}

std::optional<Platform::ScriptOutcome> ScriptEngine::run(std::string_view source) {
  if (!Platform::utf8Bytes(std::string(source)))
    return std::nullopt;

  ScriptableApps::ScriptableApplications applications;
  const auto script = AppleScript::Script::compile(source, applications);
  if (!script)
    return failure(script.error());
  const auto result = script->run();
  if (!result)
    return failure(result.error());
  const auto& value = *result;
  if (!value)
    return Platform::ScriptOutcome{};
  return Platform::ScriptOutcome{.result = Platform::ScriptOutcome::Result{value->stringValue()}};
}

}  // namespace Linux
