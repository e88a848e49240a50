#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace Platform {

/// The application's own directory on disk, with its resources and what it says of itself (NSBundle mainBundle).
class Bundle {
 public:
  virtual ~Bundle() = default;

  /// Where the bundle lies (bundlePath), absolute.
  [[nodiscard]] virtual std::filesystem::path path() const = 0;

  /// The bundle identifier in reverse-DNS form; none where the bundle names none.
  [[nodiscard]] virtual std::optional<std::string> identifier() const = 0;
};

}  // namespace Platform
