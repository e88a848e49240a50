#pragma once

#include <optional>
#include <string>

namespace Gleanery {

/// Carries out the run-command action: sends the host the resources of the provider that it has named.
class RunCommandActionController {
 public:
  RunCommandActionController() = default;
  RunCommandActionController(const RunCommandActionController&) = delete;
  RunCommandActionController& operator=(const RunCommandActionController&) = delete;
  ~RunCommandActionController() = default;

  /// `data` is the identifier of a provider. Sends the provider's allowed resources, or an empty list if no provider
  /// has this identifier, or nothing without an identifier. Shows an alert if that fails. Always asks the application
  /// to terminate at the end.
  void run(const std::optional<std::string>& data) const;
};

}  // namespace Gleanery
