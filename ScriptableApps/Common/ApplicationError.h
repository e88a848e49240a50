#pragma once

#include <string>
#include <string_view>

#include "AppleScript/Values/ScriptError.h"
#include "DesktopSupport/Bus/SessionBus.h"

namespace ScriptableApps {

/// The error that `application` could not do what a script asked, worded as the language words it: "Deskloom got an
/// error: …". `reason` is a sentence.
AppleScript::ScriptError applicationError(std::string_view application, AppleScript::ErrorNumber number,
                                          std::string_view reason);

/// -600, "Application isn’t running." Where there is more to say, `detail` is a further sentence.
AppleScript::ScriptError notRunning(std::string_view application, std::string_view detail = {});

/// -1712, "AppleEvent timed out."
AppleScript::ScriptError timedOut(std::string_view application);

/// The error that `application` could not be asked over D-Bus: -600 where it does not run or quits meanwhile, -1712
/// where it stays silent for too long, -1723 where it may not be asked, else -2700 with the message of `error`.
AppleScript::ScriptError applicationError(std::string_view application, const DesktopSupport::BusError& error);

}  // namespace ScriptableApps
