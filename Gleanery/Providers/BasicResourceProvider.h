#pragma once

#include <string>
#include <string_view>

#include "Gleanery/Providers/ResourceProvider.h"

namespace Gleanery {

/// A provider that consists of an identifier, a script, and a rule that turns a pair of reply lines into a resource.
/// The script answers with a name line and a location line for each item.
class BasicResourceProvider : public ResourceProvider {
 public:
  [[nodiscard]] const std::string& identifier() const override { return identifier_; }

  /// The AppleScript source that the provider runs.
  [[nodiscard]] const std::string& script() const { return script_; }

  /// The resource of one item, or the error with which `fetchResources` fails.
  [[nodiscard]] virtual std::expected<Resource, Platform::Error> makeResource(std::string_view name,
                                                                              std::string_view location) const = 0;

  /// Runs the script and pairs the lines of its reply by position; ignores a last line without a partner. Yields an
  /// empty list if the script fails. Fails only if `makeResource` does.
  [[nodiscard]] std::expected<std::vector<Resource>, Platform::Error> fetchResources() const override;

 protected:
  BasicResourceProvider(std::string identifier, std::string script);

  /// The resource of a browser's tab: type website, at the URL `location`. Stops the process if `location` is not a
  /// URL, which a tab's address always is.
  static Resource tabResource(std::string_view name, std::string_view location);

 private:
  const std::string identifier_;
  const std::string script_;
};

}  // namespace Gleanery
