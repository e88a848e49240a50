#include "AppleScript/Syntax/OperatorPhrases.h"

#include <algorithm>
#include <array>
#include <string>

#include "AppleScript/Text/CaseFolding.h"

namespace AppleScript {

namespace {

using enum Operator;

constexpr auto phraseTable = std::to_array<OperatorPhrase>({
    {"or", logicalOr, Precedence::logicalOr},
    {"and", logicalAnd, Precedence::logicalAnd},

    {"=", equal, Precedence::equality},
    {"is", equal, Precedence::equality},
    {"equal", equal, Precedence::equality},
    {"equals", equal, Precedence::equality},
    {"equal to", equal, Precedence::equality},
    {"is equal", equal, Precedence::equality},
    {"is equal to", equal, Precedence::equality},
    {"≠", notEqual, Precedence::equality},
    {"/=", notEqual, Precedence::equality},
    {"is not", notEqual, Precedence::equality},
    {"isn't", notEqual, Precedence::equality},
    {"is not equal", notEqual, Precedence::equality},
    {"is not equal to", notEqual, Precedence::equality},
    {"isn't equal", notEqual, Precedence::equality},
    {"isn't equal to", notEqual, Precedence::equality},
    {"does not equal", notEqual, Precedence::equality},
    {"doesn't equal", notEqual, Precedence::equality},

    {"contain", contains, Precedence::equality},
    {"contains", contains, Precedence::equality},
    {"does not contain", doesNotContain, Precedence::equality},
    {"doesn't contain", doesNotContain, Precedence::equality},
    {"is in", isIn, Precedence::equality},
    {"is contained by", isIn, Precedence::equality},
    {"is not in", isNotIn, Precedence::equality},
    {"isn't in", isNotIn, Precedence::equality},
    {"is not contained by", isNotIn, Precedence::equality},
    {"isn't contained by", isNotIn, Precedence::equality},
    {"start with", startsWith, Precedence::equality},
    {"starts with", startsWith, Precedence::equality},
    {"begin with", startsWith, Precedence::equality},
    {"begins with", startsWith, Precedence::equality},
    {"does not start with", doesNotStartWith, Precedence::equality},
    {"doesn't start with", doesNotStartWith, Precedence::equality},
    {"does not begin with", doesNotStartWith, Precedence::equality},
    {"doesn't begin with", doesNotStartWith, Precedence::equality},
    {"end with", endsWith, Precedence::equality},
    {"ends with", endsWith, Precedence::equality},
    {"does not end with", doesNotEndWith, Precedence::equality},
    {"doesn't end with", doesNotEndWith, Precedence::equality},

    {"<", less, Precedence::relation},
    {"is less than", less, Precedence::relation},
    {"less than", less, Precedence::relation},
    {"comes before", less, Precedence::relation},
    {"is not greater than or equal to", less, Precedence::relation},
    {"isn't greater than or equal to", less, Precedence::relation},
    {"≤", lessOrEqual, Precedence::relation},
    {"<=", lessOrEqual, Precedence::relation},
    {"is less than or equal to", lessOrEqual, Precedence::relation},
    {"less than or equal to", lessOrEqual, Precedence::relation},
    {"is not greater than", lessOrEqual, Precedence::relation},
    {"isn't greater than", lessOrEqual, Precedence::relation},
    {"does not come after", lessOrEqual, Precedence::relation},
    {"doesn't come after", lessOrEqual, Precedence::relation},
    {">", greater, Precedence::relation},
    {"is greater than", greater, Precedence::relation},
    {"greater than", greater, Precedence::relation},
    {"comes after", greater, Precedence::relation},
    {"is not less than or equal to", greater, Precedence::relation},
    {"isn't less than or equal to", greater, Precedence::relation},
    {"≥", greaterOrEqual, Precedence::relation},
    {">=", greaterOrEqual, Precedence::relation},
    {"is greater than or equal to", greaterOrEqual, Precedence::relation},
    {"greater than or equal to", greaterOrEqual, Precedence::relation},
    {"is not less than", greaterOrEqual, Precedence::relation},
    {"isn't less than", greaterOrEqual, Precedence::relation},
    {"does not come before", greaterOrEqual, Precedence::relation},
    {"doesn't come before", greaterOrEqual, Precedence::relation},

    {"as", coerce, Precedence::coercion},

    {"&", concatenate, Precedence::concatenation},

    {"+", add, Precedence::sum},
    {"-", subtract, Precedence::sum},

    {"*", multiply, Precedence::product},
    {"/", divide, Precedence::product},
    {"÷", divide, Precedence::product},
    {"div", integerDivide, Precedence::product},
    {"mod", remainder, Precedence::product},

    {"^", power, Precedence::power},
});

/// An order that is quick to find, since most words differ in length.
constexpr bool isBefore(std::string_view left, std::string_view right) {
  return left.size() == right.size() ? left < right : left.size() < right.size();
}

/// The same, ordered by their first words.
constexpr auto sortedPhrases = [] {
  auto phrases = phraseTable;
  std::ranges::sort(phrases, isBefore, &OperatorPhrase::firstWord);
  return phrases;
}();

/// First words of operators that scripts may use as names.
constexpr std::array<std::string_view, 5> freeWords{"comes", "greater", "less", "start", "starts"};

}  // namespace

std::span<const OperatorPhrase> operatorPhrases(std::string_view firstWord) {
  if (firstWord.size() > sortedPhrases.back().firstWord.size())
    return {};
  const std::string lower = lowerCase(firstWord);
  const auto found =
      std::ranges::equal_range(sortedPhrases, std::string_view(lower), isBefore, &OperatorPhrase::firstWord);
  return {found.begin(), found.end()};
}

bool isReservedForOperators(std::string_view word) {
  const auto isWord = [word](std::string_view one) { return sameName(one, word); };
  return !operatorPhrases(word).empty() && std::ranges::none_of(freeWords, isWord);
}

Associativity associativityOf(Precedence precedence) {
  switch (precedence) {
    case Precedence::power:
      return Associativity::right;
    case Precedence::equality:
    case Precedence::relation:
      return Associativity::none;
    default:
      return Associativity::left;
  }
}

}  // namespace AppleScript
