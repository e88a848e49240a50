#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Expressions/Operations.h"
#include "AppleScript/Syntax/OperatorPhrases.h"
#include "AppleScript/Syntax/ParseContext.h"

namespace AppleScript {

/// Parses the simplest expressions, which can be the key of an element: `window 3`, `window x`, `window (x + 1)`.
class KeyParser {
 public:
  explicit KeyParser(ParseContext& context) : context_(context) {}

  /// Whether a key begins at the token `ahead` positions from here.
  [[nodiscard]] bool isAhead(std::size_t ahead) const;
  /// Throws a syntax error if there is no key.
  [[nodiscard]] ExpressionPointer parse();

  /// The kinds of keys, which occur in other expressions too.
  [[nodiscard]] ExpressionPointer parseNumber();
  [[nodiscard]] ExpressionPointer parseText();
  [[nodiscard]] ExpressionPointer parseParenthesized();
  [[nodiscard]] ExpressionPointer parseVariable();

 private:
  [[nodiscard]] bool isWordAhead(std::size_t ahead) const;
  [[nodiscard]] bool isNegativeAhead(std::size_t ahead) const;

  ParseContext& context_;
};

/// Parses lists and records: `{1, "a"}` and `{name:"x"}`.
class ListParser {
 public:
  explicit ListParser(ParseContext& context) : context_(context) {}

  /// The current token must be the opening brace.
  [[nodiscard]] ExpressionPointer parse();

 private:
  [[nodiscard]] ExpressionPointer parseList(std::size_t start);
  [[nodiscard]] ExpressionPointer parseRecord(std::size_t start);
  /// The number of tokens of the label here, without the colon; 0 if there is no label.
  [[nodiscard]] std::size_t labelLength() const;
  [[nodiscard]] std::string takeLabel();

  ParseContext& context_;
};

/// Parses a command of an application and its parameters: `set config "T" action "A"`.
class CommandParser {
 public:
  explicit CommandParser(ParseContext& context) : context_(context) {}

  /// The next tokens must be `term`, the command's name.
  [[nodiscard]] ExpressionPointer parse(const Term& term);

 private:
  [[nodiscard]] ExpressionPointer parseDirect(const CommandDescription& command);
  [[nodiscard]] std::vector<CommandExpression::Labelled> parseLabelled();
  [[nodiscard]] bool isValueAhead() const;

  ParseContext& context_;
};

/// Parses expressions: operands and the operators between them.
class ExpressionParser {
 public:
  explicit ExpressionParser(ParseContext& context) : context_(context) {}

  /// Parses a whole expression. Throws a syntax error if there is none.
  [[nodiscard]] ExpressionPointer parse() { return parse(Precedence::logicalOr); }

 private:
  /// The operator at the current token, and its number of tokens.
  struct Match {
    OperatorPhrase phrase;
    std::size_t tokenCount = 0;
  };

  /// Parses operands joined by operators that bind at least as tightly as `loosest`.
  [[nodiscard]] ExpressionPointer parse(Precedence loosest);
  [[nodiscard]] ExpressionPointer parseChain(ExpressionPointer first, Precedence precedence, std::size_t start);
  [[nodiscard]] ExpressionPointer parseRightOperand(const OperatorPhrase& phrase);
  [[nodiscard]] ExpressionPointer parseOperand();
  [[nodiscard]] ExpressionPointer parseClassName();
  [[nodiscard]] std::optional<Match> findOperator() const;

  ParseContext& context_;
};

}  // namespace AppleScript
