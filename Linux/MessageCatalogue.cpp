#include "Linux/MessageCatalogue.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "DesktopSupport/System/FileContents.h"
#include "Platform/Text/UTF8.h"

namespace Linux {

namespace {

constexpr std::size_t maximumFileSize = 1 << 20;
constexpr std::uint32_t magicNumber = 0x950412DE;

// The header's fields, as offsets in the file.
constexpr std::size_t revisionField = 4;
constexpr std::size_t countField = 8;
constexpr std::size_t keysField = 12;
constexpr std::size_t translationsField = 16;

/// A text's place in a table: its length, without the zero byte behind it, and its offset.
constexpr std::size_t placeSize = 8;

std::optional<std::uint32_t> number(std::string_view file, std::size_t offset) {
  if (file.size() < 4 || offset > file.size() - 4)
    return std::nullopt;
  std::uint32_t value = 0;
  for (std::size_t i = 4; i > 0; --i)
    value = value << 8 | static_cast<unsigned char>(file[offset + i - 1]);
  return value;
}

/// The text whose place is at this offset.
std::optional<std::string> textAt(std::string_view file, std::size_t place) {
  const auto length = number(file, place);
  const auto start = number(file, place + 4);
  if (!length || !start || *start >= file.size() || *length >= file.size() - *start || file[*start + *length] != '\0')
    return std::nullopt;
  return Platform::stringFromUTF8(std::string(file.substr(*start, *length)));
}

bool hasKnownFormat(std::string_view file) {
  const auto revision = number(file, revisionField);
  return number(file, 0) == magicNumber && revision && *revision >> 16 <= 1;
}

}  // namespace

std::optional<MessageCatalogue> MessageCatalogue::read(const std::filesystem::path& file) {
  const auto bytes = DesktopSupport::fileContents(file, maximumFileSize);
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
    auto key = textAt(bytes, *keys + i * placeSize);
    auto translation = textAt(bytes, *translations + i * placeSize);
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

}  // namespace Linux
