#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// The runtime's gateway to the system's script interpreter. Keeps no state and may be used from any thread.
class AppleScriptRunner {
 public:
  AppleScriptRunner() = default;
  AppleScriptRunner(const AppleScriptRunner&) = delete;
  AppleScriptRunner& operator=(const AppleScriptRunner&) = delete;
  ~AppleScriptRunner() = default;

  /// Runs a script to its end on the calling thread. Yields its text result unchanged, none where it has none or where
  /// the source cannot be loaded. Fails with the code-1 error where the interpreter reports a failure, which it tells
  /// nobody.
  static std::expected<std::optional<std::string>, Platform::Error> run(std::string_view source);
};

}  // namespace DeskloomSDK
