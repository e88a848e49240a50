#pragma once

#include <cstddef>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads the simplest expressions: what may stand for the key of an element (`window 3`, `window x`, `window (x + 1)`).
class KeyParser {
 public:
  explicit KeyParser(ParseContext& context) : context_(context) {}

  /// Whether a key stands `ahead` places further on.
  [[nodiscard]] bool isAhead(std::size_t ahead) const;
  /// Throws a syntax error where there is no key.
  [[nodiscard]] ExpressionPointer parse();

  /// The parts that other expressions are made of too; each stands at its first token.
  [[nodiscard]] ExpressionPointer parseNumber();
  [[nodiscard]] ExpressionPointer parseText();
  [[nodiscard]] ExpressionPointer parseParenthesized();
  [[nodiscard]] ExpressionPointer parseVariable();

 private:
  [[nodiscard]] bool isWordAhead(std::size_t ahead) const;
  [[nodiscard]] bool isNegativeAhead(std::size_t ahead) const;

  ParseContext& context_;
};

}  // namespace AppleScript
