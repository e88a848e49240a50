#include "Platform/Text/UTF8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Platform {

namespace {

/// A kind of sequence of several bytes: the range of its first byte, its length, and the range of its second byte,
/// which rules out overlong forms, surrogates and code points above U+10FFFF.
struct Sequence {
  unsigned char firstLead = 0;
  unsigned char lastLead = 0;
  std::size_t length = 0;
  unsigned char lowestSecond = 0x80;
  unsigned char highestSecond = 0xBF;
};

constexpr std::array<Sequence, 8> sequences = {{
    {.firstLead = 0xC2, .lastLead = 0xDF, .length = 2},
    {.firstLead = 0xE0, .lastLead = 0xE0, .length = 3, .lowestSecond = 0xA0},
    {.firstLead = 0xE1, .lastLead = 0xEC, .length = 3},
    {.firstLead = 0xED, .lastLead = 0xED, .length = 3, .highestSecond = 0x9F},
    {.firstLead = 0xEE, .lastLead = 0xEF, .length = 3},
    {.firstLead = 0xF0, .lastLead = 0xF0, .length = 4, .lowestSecond = 0x90},
    {.firstLead = 0xF1, .lastLead = 0xF3, .length = 4},
    {.firstLead = 0xF4, .lastLead = 0xF4, .length = 4, .highestSecond = 0x8F},
}};

bool isBetween(char byte, unsigned char low, unsigned char high) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= low && value <= high;
}

/// The length of the well-formed sequence of several bytes at the start of `bytes`, which are not empty; 0 if there is
/// none.
std::size_t sequenceLength(std::string_view bytes) {
  const auto* sequence = std::ranges::find_if(
      sequences, [&](const Sequence& each) { return isBetween(bytes[0], each.firstLead, each.lastLead); });
  if (sequence == sequences.end() || bytes.size() < sequence->length)
    return 0;
  if (!isBetween(bytes[1], sequence->lowestSecond, sequence->highestSecond))
    return 0;
  const auto others = bytes.substr(1, sequence->length - 1);
  const bool continues = std::ranges::all_of(others, [](char byte) { return isBetween(byte, 0x80, 0xBF); });
  return continues ? sequence->length : 0;
}

std::string_view withoutLeadingASCII(std::string_view bytes) {
  std::uint64_t word = 0;
  while (bytes.size() >= sizeof word) {
    std::memcpy(&word, bytes.data(), sizeof word);
    if ((word & 0x8080808080808080U) != 0)
      break;
    bytes.remove_prefix(sizeof word);
  }
  const auto* const end = std::ranges::find_if_not(bytes, [](char byte) { return isBetween(byte, 0x00, 0x7F); });
  return {end, bytes.end()};
}

}  // namespace

bool isUTF8(std::string_view bytes) {
  for (bytes = withoutLeadingASCII(bytes); !bytes.empty(); bytes = withoutLeadingASCII(bytes)) {
    const std::size_t length = sequenceLength(bytes);
    if (length == 0)
      return false;
    bytes.remove_prefix(length);
  }
  return true;
}

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
