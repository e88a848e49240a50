#pragma once

#include <optional>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Operators/Operators.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads expressions: operands and the operators between them.
class ExpressionParser {
 public:
  explicit ExpressionParser(ParseContext& context) : context_(context) {}

  /// A whole expression. Throws a syntax error where there is none.
  [[nodiscard]] ExpressionPointer parse() { return parse(Precedence::logicalOr); }

 private:
  /// An operator at the place reached, and how many tokens spell it.
  struct Match {
    OperatorPhrase phrase;
    std::size_t tokenCount = 0;
  };

  /// Operands joined by operators that hold at least as tightly as `loosest`.
  [[nodiscard]] ExpressionPointer parse(Precedence loosest);
  [[nodiscard]] ExpressionPointer parseChain(ExpressionPointer first, Precedence precedence, std::size_t start);
  [[nodiscard]] ExpressionPointer parseRightOperand(const OperatorPhrase& phrase);
  [[nodiscard]] ExpressionPointer parseOperand();
  [[nodiscard]] ExpressionPointer parseClassName();
  [[nodiscard]] std::optional<Match> findOperator() const;

  ParseContext& context_;
};

}  // namespace AppleScript
