#pragma once

#include <string_view>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statements.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Reads statements, and the blocks that they make up.
class StatementParser {
 public:
  explicit StatementParser(ParseContext& context) : context_(context) {}

  /// All statements up to the end of the script.
  [[nodiscard]] StatementPointer parseScript();
  /// The statements up to the `end`, `else` or `on error` of the block around.
  [[nodiscard]] StatementPointer parseBlock();
  /// `end`, with `word` behind it or nothing.
  void expectEnd(Keyword word);

 private:
  [[nodiscard]] StatementPointer parseStatement();
  [[nodiscard]] StatementPointer parseTell();
  [[nodiscard]] StatementPointer parseIf();
  [[nodiscard]] StatementPointer parseIfBlock(ExpressionPointer condition);
  [[nodiscard]] StatementPointer parseTry();
  [[nodiscard]] StatementPointer parseSet();
  [[nodiscard]] StatementPointer parseCopy();
  [[nodiscard]] StatementPointer parseReturn();
  [[nodiscard]] StatementPointer parseExit();
  [[nodiscard]] StatementPointer parseError();
  [[nodiscard]] StatementPointer parseExpressionStatement();

  [[nodiscard]] ExpressionPointer parseTarget();
  [[nodiscard]] bool atBlockEnd();

  ParseContext& context_;
};

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
