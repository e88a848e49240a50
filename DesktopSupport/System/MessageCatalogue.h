#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace DesktopSupport {

/// The translations into one language, from a catalogue that msgfmt made (little-endian, UTF-8).
///
/// The C library's gettext is not used for a bundle's catalogues. It trusts every offset in the file: of copies of a
/// small catalogue with three random bytes changed, every second one crashed glibc 2.36. A bundle may be anybody's, in
/// a home folder or copied halfway. (Text of the system's own catalogues is different: they are as trusted as the
/// library.) gettext also translates into no language whose locale isn't generated on the system.
class MessageCatalogue {
 public:
  /// The catalogue `LANGUAGE/LC_MESSAGES/NAME.mo` in the folder: the first that can be read in the order of the
  /// languages that the user prefers (LANGUAGE, LC_ALL, LC_MESSAGES, LANG). `nullopt` if there is none, or if English
  /// comes first: the keys are the English texts.
  static std::optional<MessageCatalogue> inUsersLanguage(const std::filesystem::path& folder, const std::string& name);

  /// Reads a catalogue. `nullopt` if it is not a regular file or if any part of it is damaged.
  static std::optional<MessageCatalogue> read(const std::filesystem::path& file);

  /// Parses the bytes of a catalogue. `nullopt` if any part of it is damaged.
  static std::optional<MessageCatalogue> parse(std::string_view bytes);

  /// The translation of a key; `nullopt` if there is none.
  [[nodiscard]] std::optional<std::string> translation(std::string_view key) const;

 private:
  std::map<std::string, std::string, std::less<>> translations_;
};

}  // namespace DesktopSupport
