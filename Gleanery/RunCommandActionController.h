#pragma once

#include <optional>
#include <string>

namespace Gleanery {

/// Carries out the run-command action: gathers the resources of the provider that the host named and sends them to the
/// host.
class RunCommandActionController {
 public:
  RunCommandActionController() = default;
  RunCommandActionController(const RunCommandActionController&) = delete;
  RunCommandActionController& operator=(const RunCommandActionController&) = delete;
  ~RunCommandActionController() = default;

  /// `data` is the identifier of a provider. Sends that provider's allowed resources, an empty list for an identifier
  /// that nobody has, and nothing without an identifier. An error is shown in an alert. Always ends by asking the
  /// application to terminate.
  void run(const std::optional<std::string>& data) const;
};

}  // namespace Gleanery
