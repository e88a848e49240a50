#include "ScriptableApps/ApplicationError.h"

namespace ScriptableApps {

using AppleScript::ErrorNumber;
using AppleScript::ScriptError;

ScriptError applicationError(std::string_view application, ErrorNumber number, std::string_view reason) {
  return {.number = number,
          .message = std::string(application) + " got an error: " + std::string(reason),
          .applicationName = std::string(application)};
}

ScriptError notRunning(std::string_view application, std::string_view detail) {
  const std::string reason = "Application isn’t running.";
  return applicationError(application, ErrorNumber::notRunning,
                          detail.empty() ? reason : reason + ' ' + std::string(detail));
}

ScriptError timedOut(std::string_view application) {
  return applicationError(application, ErrorNumber::timedOut, "AppleEvent timed out.");
}

}  // namespace ScriptableApps
