#pragma once

#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Error.h"

namespace DeskloomSDK {

/// A message to the host, sent as a URL: `deskloom://<name>`, or `deskloom://<name>/<data>` if there is a payload.
/// Immutable.
class Command {
 public:
  /// The command that adds resources to the host. It has no payload if the list cannot be encoded.
  explicit Command(const std::vector<Resource>& resources);

  /// A command of any name. `data` is the payload, already percent-encoded.
  Command(std::string name, std::optional<std::string> data);

  /// The command's name, which the URL contains unchanged.
  [[nodiscard]] const std::string& name() const { return name_; }
  /// The payload, percent-encoded for a URL's path.
  [[nodiscard]] const std::optional<std::string>& data() const { return data_; }

  /// Has the platform open the host URL, and returns without knowing whether the host accepts it. Fails with the code-0
  /// error if the URL cannot be built.
  [[nodiscard]] std::expected<void, Platform::Error> send() const&;
  /// The same for a command that is no longer needed. Does not copy the payload.
  [[nodiscard]] std::expected<void, Platform::Error> send() &&;

 private:
  std::string name_;
  std::optional<std::string> data_;
};

}  // namespace DeskloomSDK
