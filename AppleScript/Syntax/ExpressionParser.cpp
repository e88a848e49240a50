#include "AppleScript/Syntax/ExpressionParser.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/Operands.h"
#include "AppleScript/Expressions/Operations.h"
#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Syntax/ParseContext.h"
#include "AppleScript/Syntax/ReferenceParser.h"
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
  return !isTerm && !context_.findLabel(ahead) && isName(context_.tokens().peek(ahead));
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
  if (!isName(context_.tokens().peek()))
    context_.failExpecting("variable name");
  const Token& token = context_.tokens().take();
  if (token.keyword == Keyword::result)
    return std::make_unique<ResultExpression>(token.range);
  return std::make_unique<VariableExpression>(std::string(token.lexeme), context_.variables().slot(token.lexeme),
                                              token.range);
}

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

ExpressionPointer CommandParser::parse(const Term& term) {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  tokens.skip(term.tokenCount);
  const LabelScope labels(context_, term.command);
  ExpressionPointer direct = parseDirect(*term.command);
  std::vector<CommandExpression::Labelled> labelled = parseLabelled();
  return std::make_unique<CommandExpression>(*term.command, *term.application, std::move(direct), std::move(labelled),
                                             tokens.rangeSince(start));
}

ExpressionPointer CommandParser::parseDirect(const CommandDescription& command) {
  const bool isThere =
      command.direct == DirectParameter::required || (command.direct == DirectParameter::optional && isValueAhead());
  return isThere ? ExpressionParser(context_).parse() : nullptr;
}

std::vector<CommandExpression::Labelled> CommandParser::parseLabelled() {
  TokenStream& tokens = context_.tokens();
  std::vector<CommandExpression::Labelled> labelled;
  while (const auto label = context_.findLabel()) {
    tokens.skip(tokens.matchPhrase(*label));
    labelled.emplace_back(*label, ExpressionParser(context_).parse());
  }
  return labelled;
}

bool CommandParser::isValueAhead() const {
  const TokenStream& tokens = context_.tokens();
  const Token& token = tokens.peek();
  switch (token.kind) {
    case TokenKind::symbol:
      return token.lexeme == "(" || token.lexeme == "{" || token.lexeme == "-";
    case TokenKind::word:
      return !context_.findLabel() && isName(token);
    default:
      return !tokens.atLineEnd();
  }
}

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
  if (tokens.acceptWord(Keyword::not_)) {
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
