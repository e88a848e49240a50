#pragma once

#include <string>
#include <string_view>

#include "Gleanery/Providers/ResourceProvider.h"

namespace Gleanery {

/// A provider that is nothing but an identifier, a script, and a rule that turns a pair of reply lines into a resource.
/// The script answers with a name line and a location line for each item.
class BasicResourceProvider : public ResourceProvider {
 public:
  [[nodiscard]] const std::string& identifier() const override { return identifier_; }

  /// The AppleScript source that the provider runs.
  [[nodiscard]] const std::string& script() const { return script_; }

  /// The resource of one item.
  [[nodiscard]] virtual std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                              std::string_view location) const = 0;

  /// Runs the script and pairs the lines of its reply by position alone; a last line without a partner is ignored. A
  /// script that fails yields no resources; fails only where `makeResource` does.
  [[nodiscard]] std::expected<std::vector<Resource>, Platform::Error> fetchResources() const override;

 protected:
  BasicResourceProvider(std::string identifier, std::string script);

 private:
  const std::string identifier_;
  const std::string script_;
};

}  // namespace Gleanery
