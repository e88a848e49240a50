#include "AppleScript/Text/UTF8.h"

#include <algorithm>

namespace AppleScript::UTF8 {

namespace {

constexpr char32_t replacement = 0xFFFD;

struct Sequence {
  char32_t character = replacement;
  std::size_t length = 0;
};

unsigned byteAt(std::string_view text, std::size_t offset) {
  return static_cast<unsigned char>(text[offset]);
}

std::size_t announcedLength(unsigned lead) {
  if (lead < 0x80U)
    return 1;
  if (lead >= 0xC2U && lead < 0xE0U)
    return 2;
  if (lead >= 0xE0U && lead < 0xF0U)
    return 3;
  return lead >= 0xF0U && lead < 0xF5U ? 4 : 0;
}

bool isScalarOfLength(char32_t character, std::size_t length) {
  constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  return character >= smallest[length] && character <= 0x10FFFF && !surrogate;
}

/// The well-formed character at `offset`; of length 0 where there is none.
Sequence sequenceAt(std::string_view text, std::size_t offset) {
  const unsigned lead = byteAt(text, offset);
  const std::size_t length = announcedLength(lead);
  if (length <= 1)
    return {lead, length};
  if (text.size() - offset < length)
    return {};
  char32_t character = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text[offset + i]))
      return {};
    character = (character << 6U) | (byteAt(text, offset + i) & 0x3FU);
  }
  return isScalarOfLength(character, length) ? Sequence{character, length} : Sequence{};
}

}  // namespace

std::size_t count(std::string_view text) {
  const auto continuations = std::count_if(text.begin(), text.end(), isContinuation);
  return text.size() - static_cast<std::size_t>(continuations);
}

std::size_t skip(std::string_view text, std::size_t offset, std::size_t characters) {
  while (characters > 0 && offset < text.size()) {
    do {
      ++offset;
    } while (offset < text.size() && isContinuation(text[offset]));
    --characters;
  }
  return offset;
}

char32_t decode(std::string_view text, std::size_t& offset) {
  const Sequence sequence = sequenceAt(text, offset);
  if (sequence.length == 0) {
    ++offset;
    return replacement;
  }
  offset += sequence.length;
  return sequence.character;
}

void append(std::string& text, char32_t character) {
  const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  const auto putRest = [&put, character](unsigned shift) { put(0x80U | ((character >> shift) & 0x3FU)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0U | (character >> 6U));
    putRest(0);
  } else if (character < 0x10000) {
    put(0xE0U | (character >> 12U));
    putRest(6);
    putRest(0);
  } else {
    put(0xF0U | (character >> 18U));
    putRest(12);
    putRest(6);
    putRest(0);
  }
}

std::optional<std::size_t> firstMalformed(std::string_view text) {
  for (std::size_t offset = 0; offset < text.size();) {
    const Sequence sequence = sequenceAt(text, offset);
    if (sequence.length == 0)
      return offset;
    offset += sequence.length;
  }
  return std::nullopt;
}

}  // namespace AppleScript::UTF8
