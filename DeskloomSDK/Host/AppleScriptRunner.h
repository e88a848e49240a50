#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Error.h"

namespace DeskloomSDK {

/// Runs the runtime's scripts. Keeps no state and may be used on any thread.
class AppleScriptRunner {
 public:
  AppleScriptRunner() = default;
  AppleScriptRunner(const AppleScriptRunner&) = delete;
  AppleScriptRunner& operator=(const AppleScriptRunner&) = delete;
  ~AppleScriptRunner() = default;

  /// Runs a script to its end on the calling thread. Yields its text result unchanged, or `nullopt` if it has none or
  /// the source cannot be loaded. Fails with the code-1 error if the script fails; what went wrong in it is dropped.
  static std::expected<std::optional<std::string>, Platform::Error> run(std::string_view source);
};

}  // namespace DeskloomSDK
