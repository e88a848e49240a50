#pragma once

#include <string>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// The domain of every error of this runtime.
inline constexpr const char* errorDomain = "com.quillary.DeskloomSDK";

/// The codes of the runtime's errors.
enum class ErrorCode : int {
  /// A host command's URL could not be built.
  couldNotCreateURL = 0,
  /// The interpreter reported a script as failed.
  couldNotRunScript = 1,
  /// A script returned nothing usable.
  couldNotReadScriptOutput = 2,
};

/// An error of the runtime's domain. Both texts are localised already; the failure reason is empty where there is none.
Platform::Error makeError(ErrorCode code, std::string description, std::string failureReason);

/// The error of a failed script, whatever its cause. Its texts are looked up anew at each call.
Platform::Error makeScriptError();

}  // namespace DeskloomSDK
