#pragma once

#include <string>
#include <string_view>

#include "AppleScript/Values/ScriptError.h"
#include "DesktopSupport/Bus/SessionBus.h"

namespace ScriptableApps {

/// The error that `application` could not do what a script asked, in the language's own words: "Deskloom got an error:
/// …". `reason` is a sentence.
AppleScript::ScriptError applicationError(std::string_view application, AppleScript::ErrorNumber number,
                                          std::string_view reason);

/// -600, "Application isn’t running.", followed by the sentence `detail` if it is not empty.
AppleScript::ScriptError notRunning(std::string_view application, std::string_view detail = {});

/// -1712, "AppleEvent timed out."
AppleScript::ScriptError timedOut(std::string_view application);

/// The error that a D-Bus call to `application` failed: -600 if it is not running or quits before it answers, -1712 if
/// it does not answer in time, -1723 if access is denied, otherwise -2700 with the message of `error`.
AppleScript::ScriptError applicationError(std::string_view application, const DesktopSupport::BusError& error);

}  // namespace ScriptableApps
