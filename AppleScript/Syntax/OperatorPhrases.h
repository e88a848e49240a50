#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "AppleScript/Operators/Operators.h"

namespace AppleScript {

/// How tightly an operator binds its operands; later ones bind tighter.
enum class Precedence : std::uint8_t {
  logicalOr,
  logicalAnd,
  logicalNot,
  equality,
  relation,
  coercion,
  concatenation,
  sum,
  product,
  power,
  operand,
};

/// One way to write an operator: a symbol, or words separated by single spaces.
struct OperatorPhrase {
  std::string_view phrase;
  Operator meaning;
  Precedence precedence;
  std::string_view firstWord = phrase.substr(0, phrase.find(' '));
};

/// The binary operators whose phrases begin with `firstWord`, in upper or lower case, or are that symbol. If several
/// match a script, the longest is meant.
[[nodiscard]] std::span<const OperatorPhrase> operatorPhrases(std::string_view firstWord);

/// Whether no variable can have this name, since an operator begins with it.
[[nodiscard]] bool isReservedForOperators(std::string_view word);

[[nodiscard]] Associativity associativityOf(Precedence precedence);

/// The next tighter precedence.
[[nodiscard]] constexpr Precedence tighter(Precedence precedence) {
  return precedence == Precedence::operand ? precedence : static_cast<Precedence>(static_cast<int>(precedence) + 1);
}

}  // namespace AppleScript
