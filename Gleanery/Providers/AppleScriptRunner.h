#pragma once

#include <string>
#include <string_view>

namespace Gleanery {

/// Runs a provider's script for its text. Has nothing to do with the runtime's runner of the same name, which talks to
/// the host.
class AppleScriptRunner {
 public:
  AppleScriptRunner() = default;
  AppleScriptRunner(const AppleScriptRunner&) = delete;
  AppleScriptRunner& operator=(const AppleScriptRunner&) = delete;
  ~AppleScriptRunner() = default;

  /// The script's result as text, or the empty text on any failure, which is logged.
  [[nodiscard]] std::string run(std::string_view script) const;
};

}  // namespace Gleanery
