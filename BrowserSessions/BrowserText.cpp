#include "BrowserSessions/BrowserText.h"

#include <array>
#include <cstdint>

#include "BrowserSessions/LittleEndian.h"
#include "DesktopSupport/System/GLibHandles.h"

namespace BrowserSessions {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

char32_t takeUnit(std::string_view& bytes) {
  const char32_t unit = littleEndian<std::uint16_t>(bytes);
  bytes.remove_prefix(2);
  return unit;
}

char32_t takeCharacter(std::string_view& bytes) {
  const char32_t unit = takeUnit(bytes);
  if (isHighSurrogate(unit) && bytes.size() >= 2 && isLowSurrogate(littleEndian<std::uint16_t>(bytes)))
    return 0x10000 + ((unit - 0xD800) << 10) + (takeUnit(bytes) - 0xDC00);
  return unit == 0 || isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit;
}

void append(std::string& text, char32_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  std::array<char, 6> bytes = {};
  const int count = g_unichar_to_utf8(character, bytes.data());
  text.append(bytes.data(), static_cast<std::size_t>(count));
}

}  // namespace

std::string utf8FromUtf16(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (bytes.size() >= 2)
    append(text, takeCharacter(bytes));
  return text;
}

}  // namespace BrowserSessions
