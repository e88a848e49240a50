#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Linux {

/// The translations into one language, from a catalogue as msgfmt makes them (little-endian, UTF-8).
///
/// The C library's gettext reads such files too, but trusts every offset in them, so that a damaged one ends the
/// process.
class MessageCatalogue {
 public:
  /// Reads a catalogue. None where there is no regular file, or where any part of it is not as it should be.
  static std::optional<MessageCatalogue> read(const std::filesystem::path& file);

  /// The catalogue that these bytes are; none as above.
  static std::optional<MessageCatalogue> parse(std::string_view bytes);

  /// The translation of a key; none where the catalogue has none.
  [[nodiscard]] std::optional<std::string> translation(std::string_view key) const;

 private:
  std::map<std::string, std::string, std::less<>> translations_;
};

}  // namespace Linux
