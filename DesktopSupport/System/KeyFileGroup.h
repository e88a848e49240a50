#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace DesktopSupport {

/// One group of a key file ("[Desktop Entry]" and the lines below it), such as a desktop entry. Keys and values are
/// views into the text that was parsed.
class KeyFileGroup {
 public:
  /// Reads the group called `name`, and nothing after it. `nullopt` if there is no such group, or if a line up to its
  /// end is neither a comment, nor a group's heading, nor a key with a value.
  static std::optional<KeyFileGroup> parse(std::string_view text, std::string_view name);

  /// The value of `key` with its escapes (\s \n \t \r \\) resolved. `nullopt` if the key is missing or its value is
  /// not UTF-8.
  [[nodiscard]] std::optional<std::string> text(std::string_view key) const;

  /// The value of `key` in the user's language (LANGUAGE, LC_ALL, LC_MESSAGES, LANG), or else the untranslated one.
  [[nodiscard]] std::optional<std::string> localizedText(std::string_view key) const;

  /// Whether there is a key that begins with `start`.
  [[nodiscard]] bool hasKeyStarting(std::string_view start) const;

  /// Whether the value of `key` is "true".
  [[nodiscard]] bool isTrue(std::string_view key) const;

 private:
  [[nodiscard]] std::optional<std::string_view> value(std::string_view key) const;

  std::vector<std::pair<std::string_view, std::string_view>> values_;
};

}  // namespace DesktopSupport
