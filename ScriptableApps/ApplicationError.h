#pragma once

#include <string>
#include <string_view>

#include "AppleScript/ScriptError.h"

namespace ScriptableApps {

/// The error that `application` could not do what a script asked, worded as the language words it: "Deskloom got an
/// error: …". `reason` is a sentence.
AppleScript::ScriptError applicationError(std::string_view application, AppleScript::ErrorNumber number,
                                          std::string_view reason);

/// -600, "Application isn’t running." Where there is more to say, `detail` is a further sentence.
AppleScript::ScriptError notRunning(std::string_view application, std::string_view detail = {});

/// -1712, "AppleEvent timed out."
AppleScript::ScriptError timedOut(std::string_view application);

}  // namespace ScriptableApps
