#include "AppleScript/Syntax/ReservedWords.h"

#include <algorithm>
#include <array>

#include "AppleScript/Text/Names.h"

namespace AppleScript {

namespace {

constexpr auto words = std::to_array<std::string_view>(
    {"and",    "as",        "begin",   "begins", "by",     "considering", "contain",  "contains", "copy",  "count",
     "div",    "does",      "doesn't", "else",   "end",    "ends",        "equal",    "equals",   "error", "every",
     "exists", "exit",      "from",    "get",    "global", "if",          "ignoring", "in",       "is",    "isn't",
     "it",     "its",       "local",   "mod",    "my",     "not",         "of",       "on",       "or",    "repeat",
     "return", "returning", "set",     "some",   "tell",   "the",         "then",     "through",  "thru",  "times",
     "to",     "try",       "until",   "where",  "while",  "whose",       "with",     "without"});

}  // namespace

bool isReservedWord(std::string_view word) {
  return std::ranges::any_of(words, [word](std::string_view one) { return sameName(one, word); });
}

}  // namespace AppleScript
