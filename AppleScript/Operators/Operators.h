#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace AppleScript {

enum class Operator : std::uint8_t {
  power,
  multiply,
  divide,
  integerDivide,
  remainder,
  add,
  subtract,
  concatenate,
  coerce,
  less,
  lessOrEqual,
  greater,
  greaterOrEqual,
  equal,
  notEqual,
  contains,
  doesNotContain,
  isIn,
  isNotIn,
  startsWith,
  doesNotStartWith,
  endsWith,
  doesNotEndWith,
  logicalAnd,
  logicalOr,
};

/// How tightly an operator holds its operands; later ones hold tighter.
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

enum class Associativity : std::uint8_t { left, right, none };

/// One way to write an operator: a symbol, or words with one space between them.
struct OperatorPhrase {
  std::string_view phrase;
  Operator meaning;
  Precedence precedence;
};

/// The operators between two operands whose phrases begin with `firstWord`, or are that symbol. Where one phrase begins
/// another, the longer one is meant.
[[nodiscard]] std::span<const OperatorPhrase> operatorPhrases(std::string_view firstWord);

[[nodiscard]] Associativity associativityOf(Precedence precedence);

/// The next tighter precedence.
[[nodiscard]] constexpr Precedence tighter(Precedence precedence) {
  return precedence == Precedence::operand ? precedence : static_cast<Precedence>(static_cast<int>(precedence) + 1);
}

}  // namespace AppleScript
