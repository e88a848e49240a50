#include "DesktopSupport/System/MessageCatalogue.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include <glib.h>

#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

constexpr std::size_t maximumFileSize = 1 << 20;
constexpr std::uint32_t magicNumber = 0x950412DE;

// The header's fields, as offsets in the file.
constexpr std::size_t revisionField = 4;
constexpr std::size_t countField = 8;
constexpr std::size_t keysField = 12;
constexpr std::size_t translationsField = 16;

/// The size of a table's entry for a text: its length, without the NUL after it, and its offset.
constexpr std::size_t entrySize = 8;

std::optional<std::uint32_t> number(std::string_view file, std::size_t offset) {
  if (file.size() < 4 || offset > file.size() - 4)
    return std::nullopt;
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i)
    value = value << 8 | static_cast<unsigned char>(file[offset + i - 1]);
  return value;
}

/// The text whose entry is at this offset.
std::optional<std::string> textAt(std::string_view file, std::size_t entry) {
  const auto length = number(file, entry);
  const auto start = number(file, entry + 4);
  if (!length || !start || *start >= file.size() || *length >= file.size() - *start || file[*start + *length] != '\0')
    return std::nullopt;
  // Of a text with a plural form, which follows a NUL, only the first counts.
  const std::string_view text = file.substr(*start, *length);
  const std::string_view first = text.substr(0, text.find('\0'));
  return isUTF8(first) ? std::optional(std::string(first)) : std::nullopt;
}

bool hasKnownFormat(std::string_view file) {
  const auto revision = number(file, revisionField);
  return number(file, 0) == magicNumber && revision && *revision >> 16 <= 1;
}

/// Whether a locale, such as "en_GB.UTF-8", has texts in English.
bool isEnglish(std::string_view locale) {
  const auto language = locale.substr(0, locale.find_first_of("_.@"));
  return language == "en" || language == "C" || language == "POSIX";
}

/// The locale of messages. Only if it has a language does LANGUAGE, a list of languages, count.
std::string_view messageLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
    if (const char* value = std::getenv(variable); value != nullptr && *value != '\0')
      return value;
  return "C";
}

}  // namespace

std::optional<MessageCatalogue> MessageCatalogue::inUsersLanguage(const std::filesystem::path& folder,
                                                                  const std::string& name) {
  if (const auto locale = messageLocale(); locale == "C" || locale == "POSIX")
    return std::nullopt;
  for (const char* const* locale = g_get_language_names_with_category("LC_MESSAGES"); *locale != nullptr; ++locale) {
    if (isEnglish(*locale))
      break;
    if (auto catalogue = read(folder / *locale / "LC_MESSAGES" / (name + ".mo")))
      return catalogue;
  }
  return std::nullopt;
}

std::optional<MessageCatalogue> MessageCatalogue::read(const std::filesystem::path& file) {
  const auto bytes = fileContents(file, maximumFileSize);
  return bytes ? parse(*bytes) : std::nullopt;
}

std::optional<MessageCatalogue> MessageCatalogue::parse(std::string_view bytes) {
  const auto count = number(bytes, countField);
  const auto keys = number(bytes, keysField);
  const auto translations = number(bytes, translationsField);
  if (!hasKnownFormat(bytes) || !count || !keys || !translations)
    return std::nullopt;
  MessageCatalogue catalogue;
  for (std::size_t i = 0; i < *count; ++i) {
    auto key = textAt(bytes, *keys + i * entrySize);
    auto translation = textAt(bytes, *translations + i * entrySize);
    if (!key || !translation)
      return std::nullopt;
    catalogue.translations_.insert_or_assign(*std::move(key), *std::move(translation));
  }
  return catalogue;
}

std::optional<std::string> MessageCatalogue::translation(std::string_view key) const {
  const auto found = translations_.find(key);
  // The empty key's translation is the catalogue's header.
  return key.empty() || found == translations_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace DesktopSupport
