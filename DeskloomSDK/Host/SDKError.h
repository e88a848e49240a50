#pragma once

#include <string>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// The domain of every error of this runtime.
inline constexpr const char* errorDomain = "com.quillary.DeskloomSDK";

/// The codes of the runtime's own errors.
namespace ErrorCode {

/// A host command's URL could not be built.
inline constexpr int couldNotCreateURL = 0;
/// The interpreter reported a script as failed.
inline constexpr int couldNotRunScript = 1;
/// A script returned nothing usable.
inline constexpr int couldNotReadScriptOutput = 2;

}  // namespace ErrorCode

/// An error of the runtime's domain with any code. Both texts are localised already; the failure reason is empty if
/// there is none.
Platform::Error makeError(int code, std::string description, std::string failureReason);

/// The error of a failed script, whatever its cause. Its texts are looked up anew at each call.
Platform::Error makeScriptError();

}  // namespace DeskloomSDK
