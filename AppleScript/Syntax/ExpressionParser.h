#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Expressions/Operations.h"
#include "AppleScript/Syntax/OperatorPhrases.h"
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

/// Reads what stands in braces: `{1, "a"}` and `{name:"x"}`.
class ListParser {
 public:
  explicit ListParser(ParseContext& context) : context_(context) {}

  /// The tokens begin with the opening brace.
  [[nodiscard]] ExpressionPointer parse();

 private:
  [[nodiscard]] ExpressionPointer parseList(std::size_t start);
  [[nodiscard]] ExpressionPointer parseRecord(std::size_t start);
  /// How many tokens spell a label, up to its colon; 0 where there is none.
  [[nodiscard]] std::size_t labelLength() const;
  [[nodiscard]] std::string takeLabel();

  ParseContext& context_;
};

/// Reads a command of an application and its parameters: `set config "T" action "A"`.
class CommandParser {
 public:
  explicit CommandParser(ParseContext& context) : context_(context) {}

  /// The tokens at the place reached spell `term`, the command's name.
  [[nodiscard]] ExpressionPointer parse(const Term& term);

 private:
  [[nodiscard]] ExpressionPointer parseDirect(const CommandDescription& command);
  [[nodiscard]] std::vector<CommandExpression::Labelled> parseLabelled();
  [[nodiscard]] bool isValueAhead() const;

  ParseContext& context_;
};

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
