#include "AppleScript/Text/Names.h"

#include <algorithm>

namespace AppleScript {

namespace {

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

bool sameName(std::string_view left, std::string_view right) {
  return left.size() == right.size() &&
         std::equal(left.begin(), left.end(), right.begin(), [](char a, char b) { return lower(a) == lower(b); });
}

std::string lowerCase(std::string_view name) {
  std::string result(name);
  std::transform(result.begin(), result.end(), result.begin(), lower);
  return result;
}

}  // namespace AppleScript
