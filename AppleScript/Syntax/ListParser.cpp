#include "AppleScript/Syntax/ListParser.h"

#include <memory>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/ListExpression.h"
#include "AppleScript/Expressions/RecordExpression.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/ParseScopes.h"

namespace AppleScript {

ExpressionPointer ListParser::parse() {
  const std::size_t start = context_.tokens().position();
  context_.expectSymbol("{");
  const LabelScope labels(context_, nullptr);
  return labelLength() > 0 ? parseRecord(start) : parseList(start);
}

ExpressionPointer ListParser::parseList(std::size_t start) {
  TokenStream& tokens = context_.tokens();
  std::vector<ExpressionPointer> items;
  if (!tokens.atSymbol("}")) {
    do {
      items.push_back(ExpressionParser(context_).parse());
    } while (tokens.acceptSymbol(","));
  }
  context_.expectSymbol("}");
  return std::make_unique<ListExpression>(std::move(items), tokens.rangeSince(start));
}

ExpressionPointer ListParser::parseRecord(std::size_t start) {
  TokenStream& tokens = context_.tokens();
  std::vector<std::string> labels;
  std::vector<ExpressionPointer> values;
  do {
    labels.push_back(takeLabel());
    context_.expectSymbol(":");
    values.push_back(ExpressionParser(context_).parse());
  } while (tokens.acceptSymbol(","));
  context_.expectSymbol("}");
  return std::make_unique<RecordExpression>(std::make_shared<const std::vector<std::string>>(std::move(labels)),
                                            std::move(values), tokens.rangeSince(start));
}

std::size_t ListParser::labelLength() const {
  const TokenStream& tokens = context_.tokens();
  const auto term = context_.findTerm({TermKind::property, TermKind::className});
  if (term && tokens.atSymbol(":", term->tokenCount))
    return term->tokenCount;
  const TokenKind kind = tokens.peek().kind;
  const bool isIdentifier = kind == TokenKind::word || kind == TokenKind::barredIdentifier;
  return isIdentifier && tokens.atSymbol(":", 1) ? 1 : 0;
}

std::string ListParser::takeLabel() {
  const std::size_t length = labelLength();
  if (length == 0)
    context_.failExpecting("label");
  const auto term = context_.findTerm({TermKind::property, TermKind::className});
  const bool isTerm = term && term->tokenCount == length && context_.tokens().peek().kind == TokenKind::word;
  std::string label(isTerm ? term->phrase : context_.tokens().peek().lexeme);
  context_.tokens().skip(length);
  return label;
}

}  // namespace AppleScript
