#include "AppleScript/Syntax/ParseContext.h"

#include <string>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

std::string_view nameOf(TermKind kind) {
  switch (kind) {
    case TermKind::className:
      return "class name";
    case TermKind::pluralClassName:
      return "plural class name";
    case TermKind::property:
      return "property";
    case TermKind::command:
      return "command name";
    case TermKind::constant:
      return "constant";
  }
  return {};
}

}  // namespace

std::size_t VariableTable::slot(std::string_view name) {
  return slots_.try_emplace(lowerCase(name), slots_.size()).first->second;
}

ParseContext::ParseContext(std::vector<Token> tokens, ApplicationDirectory& applications)
    : tokens_(std::move(tokens)), applications_(applications) {}

std::optional<Term> ParseContext::findTerm(std::initializer_list<TermKind> kinds, std::size_t ahead) const {
  std::optional<Term> best = Terminology::ofLanguage().longest(tokens_, ahead, kinds);
  for (const Terminology* terminology : active_) {
    const auto term = terminology->longest(tokens_, ahead, kinds);
    if (term && (!best || term->tokenCount >= best->tokenCount))
      best = term;
  }
  return best;
}

std::optional<std::string_view> ParseContext::findLabel(std::size_t ahead) const {
  std::optional<std::string_view> best;
  std::size_t most = 0;
  for (const ParameterDescription& parameter :
       command_ == nullptr ? std::span<const ParameterDescription>() : command_->parameters) {
    const std::size_t count = tokens_.matchPhrase(parameter.label, ahead);
    if (count > most) {
      best = parameter.label;
      most = count;
    }
  }
  return best;
}

void ParseContext::failExpecting(std::string_view wanted) const {
  fail(ErrorNumber::syntaxError, "Expected " + std::string(wanted) + " but found " + describeFound() + ".",
       tokens_.peek().range);
}

std::string ParseContext::describeFound() const {
  const Token& token = tokens_.peek();
  switch (token.kind) {
    case TokenKind::endOfScript:
      return "end of script";
    case TokenKind::endOfLine:
      return "end of line";
    case TokenKind::number:
    case TokenKind::ordinal:
      return "number";
    case TokenKind::text:
      return "“\"”";
    case TokenKind::barredIdentifier:
      return "identifier";
    default:
      break;
  }
  if (token.kind == TokenKind::symbol || !isName(token))
    return "“" + std::string(token.lexeme) + "”";
  const auto term = findTerm(
      {TermKind::className, TermKind::pluralClassName, TermKind::property, TermKind::command, TermKind::constant});
  return term ? std::string(nameOf(term->kind)) : "identifier";
}

void ParseContext::expectWord(Keyword word) {
  if (!tokens_.acceptWord(word))
    failExpecting("“" + std::string(spelling(word)) + "”");
}

void ParseContext::expectSymbol(std::string_view symbol) {
  if (!tokens_.acceptSymbol(symbol))
    failExpecting("“" + std::string(symbol) + "”");
}

void ParseContext::expectLineEnd() {
  const Token& found = tokens_.peek();
  if (found.kind == TokenKind::number && tokens_.previous().kind == TokenKind::number)
    fail(ErrorNumber::unexpectedToken, "A number can’t go after this number.", found.range);
  if (!tokens_.acceptLineEnd() && !tokens_.atScriptEnd())
    failExpecting("end of line");
}

const Terminology* ParseContext::terminologyOf(Application* application) {
  auto& terminology = terminologies_[application];
  if (terminology == nullptr)
    terminology = std::make_unique<const Terminology>(*application);
  return terminology.get();
}

NestingScope::NestingScope(ParseContext& context) : context_(context) {
  if (context_.nesting_ == maximumNesting)
    fail(ErrorNumber::syntaxError, "Expressions and blocks nest too deeply here.", context_.tokens_.peek().range);
  ++context_.nesting_;
}

TellScope::TellScope(ParseContext& context, Application* application)
    : context_(context), outer_(context.active_.size()) {
  ++context_.targets_;
  if (application != nullptr)
    context_.active_.push_back(context_.terminologyOf(application));
}

TellScope::~TellScope() {
  --context_.targets_;
  context_.active_.resize(outer_);
}

}  // namespace AppleScript
