#include "AppleScript/Syntax/KeyParser.h"

#include <string>
#include <utility>

#include "AppleScript/Expressions/LiteralExpression.h"
#include "AppleScript/Expressions/NegationExpression.h"
#include "AppleScript/Expressions/ResultExpression.h"
#include "AppleScript/Expressions/VariableExpression.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Syntax/ParseScopes.h"
#include "AppleScript/Syntax/ReservedWords.h"
#include "AppleScript/Text/Names.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/NumberText.h"

namespace AppleScript {

bool KeyParser::isAhead(std::size_t ahead) const {
  switch (context_.tokens().peek(ahead).kind) {
    case TokenKind::number:
    case TokenKind::text:
    case TokenKind::barredIdentifier:
      return true;
    case TokenKind::symbol:
      return context_.tokens().atSymbol("(", ahead) || isNegativeAhead(ahead);
    case TokenKind::word:
      return isWordAhead(ahead);
    default:
      return false;
  }
}

/// Whether a word there is a variable, rather than a word of the language or of an application.
bool KeyParser::isWordAhead(std::size_t ahead) const {
  const bool isTerm = context_
                          .findTerm({TermKind::className, TermKind::pluralClassName, TermKind::property,
                                     TermKind::command, TermKind::constant},
                                    ahead)
                          .has_value();
  return !isTerm && !context_.findLabel(ahead) && !isReservedWord(context_.tokens().peek(ahead).lexeme);
}

/// Whether a minus there belongs to what follows: `item -1`, but not `item - 1`.
bool KeyParser::isNegativeAhead(std::size_t ahead) const {
  const TokenStream& tokens = context_.tokens();
  const bool adjoins = tokens.peek(ahead).range.start + 1 == tokens.peek(ahead + 1).range.start;
  return tokens.atSymbol("-", ahead) && adjoins && isAhead(ahead + 1);
}

ExpressionPointer KeyParser::parse() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  if (!isAhead(0))
    context_.failExpecting("expression");
  if (tokens.acceptSymbol("-")) {
    ExpressionPointer key = parse();
    return std::make_unique<NegationExpression>(std::move(key), tokens.rangeSince(start));
  }
  switch (tokens.peek().kind) {
    case TokenKind::number:
      return parseNumber();
    case TokenKind::text:
      return parseText();
    case TokenKind::symbol:
      return parseParenthesized();
    default:
      return parseVariable();
  }
}

ExpressionPointer KeyParser::parseNumber() {
  const Token& token = context_.tokens().take();
  const auto number = numberFromText(token.lexeme);
  if (!number)
    fail(ErrorNumber::syntaxError, "The number " + std::string(token.lexeme) + " is too large.", token.range);
  return std::make_unique<LiteralExpression>(*number, token.range);
}

ExpressionPointer KeyParser::parseText() {
  const Token& token = context_.tokens().take();
  return std::make_unique<LiteralExpression>(unescaped(token.lexeme), token.range);
}

ExpressionPointer KeyParser::parseParenthesized() {
  context_.expectSymbol("(");
  const LabelScope labels(context_, nullptr);
  ExpressionPointer inner = ExpressionParser(context_).parse();
  context_.expectSymbol(")");
  return inner;
}

ExpressionPointer KeyParser::parseVariable() {
  const TokenKind kind = context_.tokens().peek().kind;
  const bool isName = kind == TokenKind::word && !isReservedWord(context_.tokens().peek().lexeme);
  if (!isName && kind != TokenKind::barredIdentifier)
    context_.failExpecting("variable name");
  const Token& token = context_.tokens().take();
  if (kind == TokenKind::word && sameName(token.lexeme, "result"))
    return std::make_unique<ResultExpression>(token.range);
  return std::make_unique<VariableExpression>(std::string(token.lexeme), context_.variables().slot(token.lexeme),
                                              token.range);
}

}  // namespace AppleScript
