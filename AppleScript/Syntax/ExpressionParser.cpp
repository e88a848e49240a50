#include "AppleScript/Syntax/ExpressionParser.h"

#include <utility>
#include <vector>

#include "AppleScript/Expressions/LiteralExpression.h"
#include "AppleScript/Expressions/NegationExpression.h"
#include "AppleScript/Expressions/NotExpression.h"
#include "AppleScript/Expressions/OperatorChain.h"
#include "AppleScript/Syntax/ParseScopes.h"
#include "AppleScript/Syntax/ReferenceParser.h"

namespace AppleScript {

ExpressionPointer ExpressionParser::parse(Precedence loosest) {
  const NestingScope nesting(context_);
  const std::size_t start = context_.tokens().position();
  ExpressionPointer expression = parseOperand();
  std::optional<Precedence> unchainable;
  while (const auto match = findOperator()) {
    const Precedence precedence = match->phrase.precedence;
    if (precedence < loosest || precedence == unchainable)
      break;
    expression = parseChain(std::move(expression), precedence, start);
    if (associativityOf(precedence) == Associativity::none)
      unchainable = precedence;
  }
  return expression;
}

/// All operators of one precedence that follow each other, and their operands.
ExpressionPointer ExpressionParser::parseChain(ExpressionPointer first, Precedence precedence, std::size_t start) {
  TokenStream& tokens = context_.tokens();
  const Associativity associativity = associativityOf(precedence);
  std::vector<OperatorChain::Link> links;
  for (auto match = findOperator(); match && match->phrase.precedence == precedence; match = findOperator()) {
    if (associativity == Associativity::none && !links.empty())
      break;
    tokens.skip(match->tokenCount);
    links.push_back({match->phrase.meaning, parseRightOperand(match->phrase)});
  }
  return std::make_unique<OperatorChain>(std::move(first), std::move(links), associativity, tokens.rangeSince(start));
}

ExpressionPointer ExpressionParser::parseRightOperand(const OperatorPhrase& phrase) {
  return phrase.meaning == Operator::coerce ? parseClassName() : parse(tighter(phrase.precedence));
}

ExpressionPointer ExpressionParser::parseOperand() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  if (tokens.acceptSymbol("-")) {
    const NestingScope nesting(context_);
    ExpressionPointer operand = parseOperand();
    return std::make_unique<NegationExpression>(std::move(operand), tokens.rangeSince(start));
  }
  if (tokens.acceptSymbol("+"))
    return parse(Precedence::operand);
  if (tokens.acceptWord("not")) {
    ExpressionPointer operand = parse(Precedence::logicalNot);
    return std::make_unique<NotExpression>(std::move(operand), tokens.rangeSince(start));
  }
  return ReferenceParser(context_).parse();
}

ExpressionPointer ExpressionParser::parseClassName() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  const auto term = context_.findTerm({TermKind::className});
  if (!term)
    context_.failExpecting("class name");
  tokens.skip(term->tokenCount);
  return std::make_unique<LiteralExpression>(ClassName{term->classDescription}, tokens.rangeSince(start));
}

std::optional<ExpressionParser::Match> ExpressionParser::findOperator() const {
  std::optional<Match> best;
  if (context_.findLabel())
    return best;
  const TokenStream& tokens = context_.tokens();
  const TokenKind kind = tokens.peek().kind;
  if (kind != TokenKind::word && kind != TokenKind::symbol)
    return best;
  for (const OperatorPhrase& phrase : operatorPhrases(tokens.peek().lexeme)) {
    const std::size_t count = tokens.matchPhrase(phrase.phrase);
    if (count > (best ? best->tokenCount : 0))
      best = Match{phrase, count};
  }
  return best;
}

}  // namespace AppleScript
