#include "DesktopSupport/System/DisplayableText.h"

#include <algorithm>

#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

bool becomesSpace(gunichar character) {
  const bool lineSeparator = character == 0x85 || character == 0x2028 || character == 0x2029;
  return (character >= '\t' && character <= '\r') || lineSeparator;
}

// Removes the printable ASCII characters at the start, and returns them.
std::string_view takePlain(std::string_view& text) {
  const auto isPlain = [](char character) { return character >= ' ' && character <= '~'; };
  const std::string_view plain(text.begin(), std::ranges::find_if_not(text, isPlain));
  text.remove_prefix(plain.size());
  return plain;
}

bool isPlain(std::string_view text) {
  takePlain(text);
  return text.empty();
}

// Removes the first character of a text in valid UTF-8, and returns it. CR LF counts as one.
std::string_view takeCharacter(std::string_view& text) {
  const std::size_t length = static_cast<unsigned char>(g_utf8_skip[static_cast<unsigned char>(text.front())]);
  const std::string_view character = text.substr(0, text.starts_with("\r\n") ? 2 : length);
  text.remove_prefix(character.size());
  return character;
}

void append(std::string& line, std::string_view character) {
  const gunichar value = g_utf8_get_char_validated(character.data(), std::ssize(character));
  if (becomesSpace(value))
    line += ' ';
  else if (g_unichar_type(value) != G_UNICODE_CONTROL)
    line += character;
}

bool changesDirection(gunichar character) {
  const bool isMark = character == 0x061C || character == 0x200E || character == 0x200F;
  const bool isEmbeddingOrOverride = character >= 0x202A && character <= 0x202E;
  const bool isIsolate = character >= 0x2066 && character <= 0x2069;
  return isMark || isEmbeddingOrOverride || isIsolate;
}

std::string codeOf(gunichar character) {
  const CharsHandle code(g_strdup_printf("\\u{%04X}", character));
  return code.get();
}

std::string validWithoutNUL(std::string_view text) {
  std::string rest(text);
  std::erase(rest, '\0');
  return validUTF8(rest);
}

}  // namespace

std::string displayable(std::string_view text) {
  if (isPlain(text))
    return std::string(text);
  const std::string valid = validWithoutNUL(text);
  std::string_view rest = valid;
  std::string line;
  line.reserve(rest.size());
  for (line += takePlain(rest); !rest.empty(); line += takePlain(rest))
    append(line, takeCharacter(rest));
  return line;
}

bool isDisplayable(std::string_view text) {
  return displayable(text) == text;
}

std::string printable(std::string_view text) {
  if (isPlain(text))
    return std::string(text);
  const std::string line = displayable(text);
  std::string_view rest = line;
  std::string shown;
  shown.reserve(line.size());
  for (shown += takePlain(rest); !rest.empty(); shown += takePlain(rest)) {
    const std::string_view character = takeCharacter(rest);
    const gunichar value = g_utf8_get_char(character.data());
    shown += changesDirection(value) ? codeOf(value) : std::string(character);
  }
  return shown;
}

std::string printableLines(std::string_view text) {
  std::string lines;
  for (auto end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    const std::string_view line = text.substr(0, end);
    lines += printable(line.ends_with('\r') ? line.substr(0, end - 1) : line) + '\n';
    text.remove_prefix(end + 1);
  }
  return lines + printable(text);
}

std::string shortened(std::string_view text) {
  // A character has four bytes at most, so these are enough to tell that a text is too long.
  constexpr std::size_t bytesToLookAt = 4 * (longestName + 1);
  if (text.size() <= longestName)
    return std::string(text);
  const std::string start = validUTF8(text.substr(0, bytesToLookAt));
  if (g_utf8_strlen(start.c_str(), -1) <= static_cast<glong>(longestName))
    return std::string(text);
  const auto kept = g_utf8_offset_to_pointer(start.c_str(), longestName - 1) - start.c_str();
  return start.substr(0, static_cast<std::size_t>(kept)) + "…";
}

std::string displayableName(std::string_view text) {
  return displayable(shortened(text));
}

std::string utf8FromLatin1(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (value >= 0x80)
      text += static_cast<char>(0xC0 | value >> 6);
    text += static_cast<char>(value >= 0x80 ? 0x80 | (value & 0x3F) : value);
  }
  return text;
}

std::string lowerCase(std::string_view text) {
  const CharsHandle lower(g_utf8_strdown(validWithoutNUL(text).c_str(), -1));
  return lower.get();
}

}  // namespace DesktopSupport
