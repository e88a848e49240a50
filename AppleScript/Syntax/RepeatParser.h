#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads loops.
class RepeatParser {
 public:
  explicit RepeatParser(ParseContext& context) : context_(context) {}

  /// What stands behind `repeat`, up to the loop's `end`.
  [[nodiscard]] StatementPointer parse();

 private:
  [[nodiscard]] StatementPointer parseWhile(bool expected);
  [[nodiscard]] StatementPointer parseTimes();
  [[nodiscard]] StatementPointer parseWith();
  [[nodiscard]] StatementPointer parseRange(ExpressionPointer variable);
  [[nodiscard]] StatementPointer parseBody();

  ParseContext& context_;
};

}  // namespace AppleScript
