#include "ScriptableApps/Errors/ApplicationErrors.h"

#include <algorithm>
#include <array>

namespace ScriptableApps {

using AppleScript::ErrorNumber;
using AppleScript::ScriptError;
namespace BusErrorName = DesktopSupport::BusErrorName;

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

ScriptError applicationError(std::string_view application, const DesktopSupport::BusError& error) {
  constexpr std::array absences = {BusErrorName::noServer, BusErrorName::disconnected, BusErrorName::serviceUnknown,
                                   BusErrorName::nameHasNoOwner, BusErrorName::noReply};
  if (std::ranges::find(absences, error.name) != absences.end())
    return notRunning(application);
  if (error.name == BusErrorName::timeout)
    return timedOut(application);
  const bool isRefusal = error.name == BusErrorName::accessDenied;
  return applicationError(application, isRefusal ? ErrorNumber::accessNotAllowed : ErrorNumber::genericError,
                          error.message);
}

}  // namespace ScriptableApps
