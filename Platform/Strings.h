#pragma once

#include <string>
#include <string_view>

namespace Platform {

/// The texts of the main bundle in the user's language (NSLocalizedString).
class Strings {
 public:
  virtual ~Strings() = default;

  /// The translation of `key`, or the key itself where there is none. `comment` is for translators.
  [[nodiscard]] virtual std::string localized(std::string_view key, std::string_view comment) const = 0;
};

/// `text` with the argument in place of its first "%@" (stringWithFormat:).
std::string formatted(std::string text, std::string_view argument);

}  // namespace Platform
