#include "AppleScript/Text/CaseFolding.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "AppleScript/Text/UTF8.h"

namespace AppleScript {

namespace {

/// A run of upper-case letters: those at an even distance from `first` where `step` is 2, all of them where it is 1.
struct UpperCaseRun {
  char32_t first;
  char32_t last;
  std::int32_t toLower;
  char32_t step;
};

constexpr std::array runs{
    UpperCaseRun{'A', 'Z', 32, 1},      UpperCaseRun{0xC0, 0xD6, 32, 1},     UpperCaseRun{0xD8, 0xDE, 32, 1},
    UpperCaseRun{0x100, 0x12E, 1, 2},   UpperCaseRun{0x132, 0x136, 1, 2},    UpperCaseRun{0x139, 0x147, 1, 2},
    UpperCaseRun{0x14A, 0x176, 1, 2},   UpperCaseRun{0x178, 0x178, -121, 1}, UpperCaseRun{0x179, 0x17D, 1, 2},
    UpperCaseRun{0x1CD, 0x1DB, 1, 2},   UpperCaseRun{0x1DE, 0x1EE, 1, 2},    UpperCaseRun{0x1F8, 0x21E, 1, 2},
    UpperCaseRun{0x222, 0x232, 1, 2},   UpperCaseRun{0x386, 0x386, 38, 1},   UpperCaseRun{0x388, 0x38A, 37, 1},
    UpperCaseRun{0x38C, 0x38C, 64, 1},  UpperCaseRun{0x38E, 0x38F, 63, 1},   UpperCaseRun{0x391, 0x3A1, 32, 1},
    UpperCaseRun{0x3A3, 0x3AB, 32, 1},  UpperCaseRun{0x400, 0x40F, 80, 1},   UpperCaseRun{0x410, 0x42F, 32, 1},
    UpperCaseRun{0x460, 0x480, 1, 2},   UpperCaseRun{0x48A, 0x4BE, 1, 2},    UpperCaseRun{0x4C1, 0x4CD, 1, 2},
    UpperCaseRun{0x4D0, 0x52E, 1, 2},   UpperCaseRun{0x531, 0x556, 48, 1},   UpperCaseRun{0x1E00, 0x1E94, 1, 2},
    UpperCaseRun{0x1EA0, 0x1EFE, 1, 2}, UpperCaseRun{0xFF21, 0xFF3A, 32, 1},
};

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

char32_t foldCase(char32_t character) {
  for (const UpperCaseRun& run : runs) {
    if (character < run.first)
      return character;
    if (character <= run.last && (character - run.first) % run.step == 0)
      return static_cast<char32_t>(static_cast<std::int32_t>(character) + run.toLower);
  }
  return character;
}

std::string foldCase(std::string_view text) {
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();)
    UTF8::append(folded, foldCase(UTF8::decode(text, offset)));
  return folded;
}

std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) {
  std::size_t leftOffset = 0;
  std::size_t rightOffset = 0;
  while (leftOffset < left.size() && rightOffset < right.size()) {
    const char32_t leftCharacter = foldCase(UTF8::decode(left, leftOffset));
    const char32_t rightCharacter = foldCase(UTF8::decode(right, rightOffset));
    if (leftCharacter != rightCharacter)
      return leftCharacter <=> rightCharacter;
  }
  return left.size() - leftOffset <=> right.size() - rightOffset;
}

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
