#pragma once

#include "AppleScript/Values/Dictionary.h"

namespace ScriptableApps {

/// The application class of Deskloom and its commands, which `Deskloom` objects carry out.
const AppleScript::Dictionary& deskloomDictionary();

}  // namespace ScriptableApps
