#pragma once

#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Error.h"

namespace DeskloomSDK {

/// A message to the host, sent as a URL: `deskloom://<name>` or, where there is a payload, `deskloom://<name>/<data>`.
/// Immutable.
class Command {
 public:
  /// The command that adds resources to the host. A list that cannot be encoded makes a command without payload.
  explicit Command(const std::vector<Resource>& resources);

  /// A command of any name; `data` is the payload as it will stand in the URL.
  Command(std::string name, std::optional<std::string> data);

  /// The command's name; stands in the URL as it is.
  [[nodiscard]] const std::string& name() const { return name_; }
  /// The payload, percent-encoded for a URL's path.
  [[nodiscard]] const std::optional<std::string>& data() const { return data_; }

  /// Has the platform open the host URL and returns; nobody learns whether the host accepted it. Fails with the code-0
  /// error where the URL cannot be built.
  [[nodiscard]] std::expected<void, Platform::Error> send() const&;
  /// The same for a command that is not needed any more: its payload is not copied.
  [[nodiscard]] std::expected<void, Platform::Error> send() &&;

 private:
  std::string name_;
  std::optional<std::string> data_;
};

}  // namespace DeskloomSDK
