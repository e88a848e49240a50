#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// The application's own directory on disk, with its resources and what it says of itself (NSBundle mainBundle).
class Bundle {
 public:
  virtual ~Bundle() = default;

  /// Where the bundle lies (bundlePath), absolute.
  [[nodiscard]] virtual std::filesystem::path path() const = 0;

  /// What the bundle says of itself under this key (objectForInfoDictionaryKey:): "Identifier", "Name", "Version" and
  /// whatever else its author put there. None where it says nothing.
  [[nodiscard]] virtual std::optional<std::string> information(std::string_view key) const = 0;

  /// The bundle identifier in reverse-DNS form; none where the bundle names none.
  [[nodiscard]] std::optional<std::string> identifier() const { return information("Identifier"); }
};

}  // namespace Platform
