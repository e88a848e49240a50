#pragma once

#include <string>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// The domain of all errors of the runtime.
inline constexpr const char* errorDomain = "com.quillary.DeskloomSDK";

/// The codes of the runtime's own errors.
namespace ErrorCode {

/// A host command's URL could not be built.
inline constexpr int couldNotCreateURL = 0;
/// A script failed.
inline constexpr int couldNotRunScript = 1;
/// A script yielded no text.
inline constexpr int couldNotReadScriptOutput = 2;

}  // namespace ErrorCode

/// An error of the runtime's domain. Both texts are localised already; the failure reason may be empty.
Platform::Error makeError(int code, std::string description, std::string failureReason);

/// The error of a failed script, whatever went wrong. Its texts are looked up anew at each call.
Platform::Error makeScriptError();

}  // namespace DeskloomSDK
