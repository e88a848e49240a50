#include "DesktopSupport/Bus/BusNames.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include <glib.h>

namespace DesktopSupport {

namespace {

constexpr std::size_t longestBusName = 255;

bool isDigit(char character) {
  return character >= '0' && character <= '9';
}

bool isWordCharacter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') || isDigit(character) ||
         character == '_';
}

struct Alphabet {
  bool hasHyphens = false;
  bool beginsWithDigits = false;
};

bool isElement(std::string_view text, Alphabet alphabet) {
  if (text.empty() || (!alphabet.beginsWithDigits && isDigit(text.front())))
    return false;
  return std::ranges::all_of(text,
                             [&](char each) { return isWordCharacter(each) || (alphabet.hasHyphens && each == '-'); });
}

/// Whether the text is two or more elements with dots between them.
bool isDotted(std::string_view text, Alphabet alphabet) {
  std::size_t start = 0;
  std::size_t dot = 0;
  for (; (dot = text.find('.', start)) != std::string_view::npos; start = dot + 1)
    if (!isElement(text.substr(start, dot - start), alphabet))
      return false;
  return start > 0 && isElement(text.substr(start), alphabet);
}

}  // namespace

bool isBusName(std::string_view text) {
  return isUniqueBusName(text) || (text.size() <= longestBusName && isDotted(text, {.hasHyphens = true}));
}

bool isUniqueBusName(std::string_view text) {
  return text.size() <= longestBusName && text.starts_with(':') &&
         isDotted(text.substr(1), {.hasHyphens = true, .beginsWithDigits = true});
}

bool isInterfaceName(std::string_view text) {
  return text.size() <= longestBusName && isDotted(text, {});
}

bool isMemberName(std::string_view text) {
  return text.size() <= longestBusName && isElement(text, {});
}

bool isBusSignature(std::string_view text) {
  // GLib also knows tuples without elements, and dictionary entries outside an array.
  for (std::size_t index = 0; index < text.size(); ++index)
    if (text.substr(index, 2) == "()" || (text[index] == '{' && (index == 0 || text[index - 1] != 'a')))
      return false;
  return text.size() <= longestBusName && g_variant_is_signature(std::string(text).c_str()) != FALSE;
}

}  // namespace DesktopSupport
