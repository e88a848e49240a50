#include "Platform/UTF8.h"

#include <cstddef>
#include <string_view>

namespace Platform {

namespace {

/// The length of the well-formed sequence at the start of `bytes`, 0 where there is none. The second byte's range rules
/// out overlong forms, surrogates and what lies beyond U+10FFFF.
std::size_t sequenceLength(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U; };
  const auto inRange = [](unsigned value, unsigned low, unsigned high) { return value >= low && value <= high; };
  const unsigned first = byte(0);

  std::size_t length = 0;
  unsigned low = 0x80;
  unsigned high = 0xBF;
  if (first < 0x80) {
    return 1;
  } else if (inRange(first, 0xC2, 0xDF)) {
    length = 2;
  } else if (inRange(first, 0xE0, 0xEF)) {
    length = 3;
    low = first == 0xE0 ? 0xA0 : 0x80;
    high = first == 0xED ? 0x9F : 0xBF;
  } else if (inRange(first, 0xF0, 0xF4)) {
    length = 4;
    low = first == 0xF0 ? 0x90 : 0x80;
    high = first == 0xF4 ? 0x8F : 0xBF;
  }

  if (length == 0 || !inRange(byte(1), low, high))
    return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (!inRange(byte(i), 0x80, 0xBF))
      return 0;
  }
  return length;
}

bool isUTF8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = sequenceLength(bytes);
    if (length == 0)
      return false;
    bytes.remove_prefix(length);
  }
  return true;
}

}  // namespace

std::optional<std::string> utf8Bytes(std::string text) {
  if (!isUTF8(text))
    return std::nullopt;
  return text;
}

std::optional<std::string> stringFromUTF8(std::string bytes) {
  if (!isUTF8(bytes))
    return std::nullopt;
  return bytes;
}

}  // namespace Platform
