#include "AppleScript/Syntax/HeadParser.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "AppleScript/Expressions/Operands.h"
#include "AppleScript/Expressions/Operations.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/References/Selectors.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/Lexer.h"
#include "AppleScript/Syntax/ParseContext.h"
#include "AppleScript/Syntax/ReferenceParser.h"
#include "AppleScript/Values/BuiltIns.h"

namespace AppleScript {

namespace {

struct Ordinal {
  Keyword word;
  std::int64_t number;
};

constexpr auto ordinals = std::to_array<Ordinal>({{Keyword::first, 1},
                                                  {Keyword::second, 2},
                                                  {Keyword::third, 3},
                                                  {Keyword::fourth, 4},
                                                  {Keyword::fifth, 5},
                                                  {Keyword::sixth, 6},
                                                  {Keyword::seventh, 7},
                                                  {Keyword::eighth, 8},
                                                  {Keyword::ninth, 9},
                                                  {Keyword::tenth, 10},
                                                  {Keyword::front, 1},
                                                  {Keyword::last, -1},
                                                  {Keyword::back, -1}});

}  // namespace

ReferenceHead ReferenceHead::ofExpression(ExpressionPointer expression) {
  return {.expression = std::move(expression), .link = {}};
}

ReferenceHead ReferenceHead::ofForm(std::unique_ptr<ReferenceForm> form) {
  return {.expression = nullptr, .link = {.form = std::move(form)}};
}

ReferenceHead ReferenceHead::ofElements(const ClassDescription& elementClass, ElementSelectorPointer selector) {
  auto form = std::make_unique<ElementForm>(elementClass, std::move(selector));
  ElementForm* elements = form.get();
  return {.expression = nullptr, .link = {.form = std::move(form), .elements = elements}};
}

ReferenceHead ReferenceHead::ofProperty(std::string_view name) {
  return ofForm(std::make_unique<PropertyForm>(std::string(name)));
}

ReferenceHead ReferenceHead::ofCount() {
  return {.expression = nullptr, .link = {.form = std::make_unique<CountForm>(), .counts = true}};
}

ReferenceHead HeadParser::parse() {
  TokenStream& tokens = context_.tokens();
  while (tokens.acceptWord(Keyword::the)) {
  }
  switch (tokens.peek().kind) {
    case TokenKind::number:
      return ReferenceHead::ofExpression(KeyParser(context_).parseNumber());
    case TokenKind::text:
      return ReferenceHead::ofExpression(KeyParser(context_).parseText());
    case TokenKind::ordinal:
      return parseNumberedOrdinal();
    case TokenKind::barredIdentifier:
      return parseIdentifier();
    case TokenKind::word:
      return parseWord();
    default:
      break;
  }
  if (tokens.atSymbol("{"))
    return ReferenceHead::ofExpression(ListParser(context_).parse());
  if (!tokens.atSymbol("("))
    context_.failExpecting("expression");
  return ReferenceHead::ofExpression(KeyParser(context_).parseParenthesized());
}

ReferenceLink HeadParser::parseMember() {
  TokenStream& tokens = context_.tokens();
  if (tokens.peek().kind == TokenKind::ordinal)
    return parseNumberedOrdinal().link;
  const auto term = findTerm();
  if (!term || term->tokenCount == 1) {
    if (auto position = parsePosition())
      return std::move(position->link);
  }
  if (term && term->kind == TermKind::pluralClassName)
    return parsePlural(*term).link;
  if (term && term->kind == TermKind::className && isKeyAhead(term->tokenCount)) {
    tokens.skip(term->tokenCount);
    return parseKeyed(*term->classDescription).link;
  }
  const Token& token = tokens.peek();
  if (!term && !isName(token))
    context_.failExpecting("property");
  tokens.skip(term ? term->tokenCount : 1);
  return ReferenceHead::ofProperty(term ? term->phrase : token.lexeme).link;
}

/// Phrases of several words come before the words of the language, which come before single words of a dictionary.
ReferenceHead HeadParser::parseWord() {
  const auto term = findTerm();
  if (term && (term->tokenCount > 1 || term->kind == TermKind::command))
    return parseTerm(*term);
  if (auto head = parseKeyword())
    return *std::move(head);
  return term ? parseTerm(*term) : parseIdentifier();
}

std::optional<ReferenceHead> HeadParser::parseKeyword() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  const bool counts =
      (tokens.atWord(Keyword::count) || tokens.atWord(Keyword::number)) && tokens.atWord(Keyword::of, 1);
  if (counts) {
    tokens.skip(1);
    return ReferenceHead::ofCount();
  }
  if (tokens.acceptWord(Keyword::it))
    return ReferenceHead::ofExpression(std::make_unique<TargetExpression>(tokens.rangeSince(start)));
  if (tokens.acceptWord(Keyword::its))
    return ReferenceHead{.expression = nullptr, .link = parseMember()};
  if (tokens.acceptWord(Keyword::my)) {
    const NestingScope nesting(context_);
    return parse();
  }
  if (tokens.acceptWord(Keyword::get)) {
    ExpressionPointer inner = ExpressionParser(context_).parse();
    return ReferenceHead::ofExpression(std::make_unique<GetExpression>(std::move(inner), tokens.rangeSince(start)));
  }
  if (tokens.acceptWord(Keyword::exists)) {
    const NestingScope nesting(context_);
    ExpressionPointer inner = ReferenceParser(context_).parse();
    return ReferenceHead::ofExpression(std::make_unique<ExistsExpression>(std::move(inner), tokens.rangeSince(start)));
  }
  auto insertion = parseInsertion();
  return insertion ? std::move(insertion) : parsePosition();
}

/// `beginning of` and `end of`.
std::optional<ReferenceHead> HeadParser::parseInsertion() {
  TokenStream& tokens = context_.tokens();
  const bool isEnd = tokens.atWord(Keyword::end);
  if ((!isEnd && !tokens.atWord(Keyword::beginning)) || !tokens.atWord(Keyword::of, 1))
    return std::nullopt;
  tokens.skip(1);
  return ReferenceHead::ofForm(
      std::make_unique<InsertionForm>(isEnd ? InsertionForm::Place::end : InsertionForm::Place::beginning));
}

/// `every window`, `some window`, `middle window`, `first window`, …
std::optional<ReferenceHead> HeadParser::parsePosition() {
  TokenStream& tokens = context_.tokens();
  if (tokens.acceptWord(Keyword::every))
    return ReferenceHead::ofElements(expectClass(), std::make_unique<EverySelector>());
  if (tokens.acceptWord(Keyword::some))
    return ReferenceHead::ofElements(expectClass(), std::make_unique<SomeSelector>());
  if (!context_.findTerm({TermKind::className}, 1))
    return std::nullopt;
  if (tokens.acceptWord(Keyword::middle))
    return ReferenceHead::ofElements(expectClass(), std::make_unique<MiddleSelector>());
  const auto ordinal =
      std::ranges::find_if(ordinals, [&tokens](const Ordinal& one) { return tokens.acceptWord(one.word); });
  return ordinal == ordinals.end() ? std::nullopt : std::optional(parseOrdinal(ordinal->number));
}

ReferenceHead HeadParser::parseOrdinal(std::int64_t number) {
  auto key = std::make_unique<LiteralExpression>(number, context_.tokens().previous().range);
  auto selector = std::make_unique<KeySelector>(std::move(key), KeySelector::Style::ordinal);
  return ReferenceHead::ofElements(expectClass(), std::move(selector));
}

/// `2nd window`.
ReferenceHead HeadParser::parseNumberedOrdinal() {
  auto selector = std::make_unique<KeySelector>(KeyParser(context_).parseNumber(), KeySelector::Style::ordinal);
  return ReferenceHead::ofElements(expectClass(), std::move(selector));
}

ReferenceHead HeadParser::parseTerm(const Term& term) {
  switch (term.kind) {
    case TermKind::command:
      return ReferenceHead::ofExpression(CommandParser(context_).parse(term));
    case TermKind::property:
      return parseProperty(term);
    case TermKind::className:
      return parseClass(term);
    case TermKind::pluralClassName:
      return parsePlural(term);
    case TermKind::constant:
      break;
  }
  const std::size_t start = context_.tokens().position();
  context_.tokens().skip(term.tokenCount);
  return ReferenceHead::ofExpression(
      std::make_unique<LiteralExpression>(*term.constant, context_.tokens().rangeSince(start)));
}

ReferenceHead HeadParser::parseProperty(const Term& term) {
  const bool couldBeVariable = term.application == nullptr && term.tokenCount == 1 && !context_.hasTarget();
  if (couldBeVariable)
    return parseIdentifier();
  context_.tokens().skip(term.tokenCount);
  return ReferenceHead::ofProperty(term.phrase);
}

ReferenceHead HeadParser::parseClass(const Term& term) {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position();
  const ClassDescription& description = *term.classDescription;
  tokens.skip(term.tokenCount);
  if (isOfAhead())
    return ReferenceHead::ofProperty(term.phrase);
  if (!isKeyAhead(0)) {
    return ReferenceHead::ofExpression(
        std::make_unique<LiteralExpression>(ClassName{&description}, tokens.rangeSince(start)));
  }
  if (&description == &BuiltInClasses::application)
    return ReferenceHead::ofExpression(parseApplication(start));
  if (&description == &BuiltInClasses::file || &description == &BuiltInClasses::alias) {
    ExpressionPointer path = KeyParser(context_).parse();
    return ReferenceHead::ofExpression(std::make_unique<FileExpression>(std::move(path), tokens.rangeSince(start)));
  }
  return parseKeyed(description);
}

/// What stands behind a class name: `window 3`, `window id 7`, `items 2 thru 4`.
ReferenceHead HeadParser::parseKeyed(const ClassDescription& elementClass) {
  TokenStream& tokens = context_.tokens();
  KeyParser keys(context_);
  if (tokens.acceptWord(Keyword::id))
    return ReferenceHead::ofElements(elementClass, std::make_unique<IDSelector>(keys.parse()));
  if (!tokens.acceptWord(Keyword::named))
    tokens.acceptWord(Keyword::index);
  ExpressionPointer key = keys.parse();
  if (tokens.acceptWord(Keyword::thru) || tokens.acceptWord(Keyword::through))
    return ReferenceHead::ofElements(elementClass, std::make_unique<RangeSelector>(std::move(key), keys.parse()));
  return ReferenceHead::ofElements(elementClass,
                                   std::make_unique<KeySelector>(std::move(key), KeySelector::Style::key));
}

ReferenceHead HeadParser::parsePlural(const Term& term) {
  context_.tokens().skip(term.tokenCount);
  if (isKeyAhead(0))
    return parseKeyed(*term.classDescription);
  return ReferenceHead::ofElements(*term.classDescription, std::make_unique<EverySelector>());
}

ExpressionPointer HeadParser::parseApplication(std::size_t start) {
  TokenStream& tokens = context_.tokens();
  const Token& token = tokens.peek();
  Application* known = token.kind == TokenKind::text ? context_.applications().find(unescaped(token.lexeme)) : nullptr;
  ExpressionPointer name = KeyParser(context_).parse();
  return std::make_unique<ApplicationExpression>(std::move(name), known, tokens.rangeSince(start));
}

/// A variable or, before an `of`, a property that no dictionary knows.
ReferenceHead HeadParser::parseIdentifier() {
  TokenStream& tokens = context_.tokens();
  const Token& token = tokens.peek();
  if (!isName(token))
    context_.failExpecting("expression");
  ExpressionPointer variable = KeyParser(context_).parseVariable();
  return isOfAhead() ? ReferenceHead::ofProperty(token.lexeme) : ReferenceHead::ofExpression(std::move(variable));
}

std::optional<Term> HeadParser::findTerm() const {
  const auto className = context_.findTerm({TermKind::className, TermKind::pluralClassName});
  const auto property = context_.findTerm({TermKind::property});
  const bool isKeyed = className && isKeyAhead(className->tokenCount);
  std::optional<Term> best;
  for (const auto& term : {context_.findTerm({TermKind::command}), isKeyed ? className : property,
                           isKeyed ? property : className, context_.findTerm({TermKind::constant})}) {
    if (term && (!best || term->tokenCount > best->tokenCount))
      best = term;
  }
  return best;
}

const ClassDescription& HeadParser::expectClass() {
  const auto term = context_.findTerm({TermKind::className, TermKind::pluralClassName});
  if (!term)
    context_.failExpecting("class name");
  context_.tokens().skip(term->tokenCount);
  return *term->classDescription;
}

bool HeadParser::isKeyAhead(std::size_t ahead) const {
  const TokenStream& tokens = context_.tokens();
  const bool isNamed =
      tokens.atWord(Keyword::id, ahead) || tokens.atWord(Keyword::named, ahead) || tokens.atWord(Keyword::index, ahead);
  const KeyParser keys(context_);
  return keys.isAhead(ahead) || (isNamed && keys.isAhead(ahead + 1));
}

bool HeadParser::isOfAhead() const {
  const TokenStream& tokens = context_.tokens();
  return !context_.findLabel() && (tokens.atWord(Keyword::of) || tokens.atWord(Keyword::in));
}

}  // namespace AppleScript
