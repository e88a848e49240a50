#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// The application's own directory on disk, with its resources and its information (NSBundle mainBundle).
class Bundle {
 public:
  virtual ~Bundle() = default;

  /// The bundle's absolute path (bundlePath).
  [[nodiscard]] virtual std::filesystem::path path() const = 0;

  /// The value of this key in the bundle's information (objectForInfoDictionaryKey:): "Identifier", "Name", "Version"
  /// and whatever else its author put there. `nullopt` if there is none.
  [[nodiscard]] virtual std::optional<std::string> information(std::string_view key) const = 0;

  /// The bundle identifier in reverse-DNS form; `nullopt` if the information has none.
  [[nodiscard]] std::optional<std::string> identifier() const { return information("Identifier"); }
};

/// The texts of the main bundle in the user's language (NSLocalizedString).
class Strings {
 public:
  virtual ~Strings() = default;

  /// The translation of `key`, or the key itself if there is none. `comment` is for translators.
  [[nodiscard]] virtual std::string localized(std::string_view key, std::string_view comment) const = 0;
};

/// `text` with the argument in place of its first "%@" (stringWithFormat:).
inline std::string formatted(std::string text, std::string_view argument) {
  constexpr std::string_view placeholder = "%@";
  const auto place = text.find(placeholder);
  if (place != std::string::npos)
    text.replace(place, placeholder.size(), argument);
  return text;
}

}  // namespace Platform
