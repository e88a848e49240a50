#pragma once

#include <string>
#include <string_view>

namespace Gleanery {

/// Runs a provider's script. Not related to the runtime's class of the same name, which talks to the host.
class AppleScriptRunner {
 public:
  AppleScriptRunner() = default;
  AppleScriptRunner(const AppleScriptRunner&) = delete;
  AppleScriptRunner& operator=(const AppleScriptRunner&) = delete;
  ~AppleScriptRunner() = default;

  /// The script's result as text. If anything fails, logs it and yields the empty text.
  [[nodiscard]] std::string run(std::string_view script) const;
};

}  // namespace Gleanery
