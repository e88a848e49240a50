#include "AppleScript/Syntax/ParseContext.h"

#include <string>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

constexpr std::size_t longestQuote = 50;

std::string quoted(std::string_view text) {
  const std::size_t end = UTF8::skip(text, 0, longestQuote);
  return "“" + std::string(text.substr(0, end)) + (end < text.size() ? "…”" : "”");
}

/// `token` as an error message names it.
std::string description(const Token& token) {
  switch (token.kind) {
    case TokenKind::endOfScript:
      return "the end of the script";
    case TokenKind::endOfLine:
      return "the end of the line";
    case TokenKind::text:
      return shortSourceForm(unescaped(token.lexeme));
    case TokenKind::barredIdentifier:
      return quoted("|" + std::string(token.lexeme) + "|");
    case TokenKind::ordinal:
      return quoted({token.lexeme.data(), token.range.length});
    default:
      return quoted(token.lexeme);
  }
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
  fail(ErrorNumber::syntaxError, "Expected " + std::string(wanted) + " but found " + description(tokens_.peek()) + ".",
       tokens_.peek().range);
}

void ParseContext::expectWord(Keyword word) {
  if (!tokens_.acceptWord(word))
    failExpecting(quoted(spelling(word)));
}

void ParseContext::expectSymbol(std::string_view symbol) {
  if (!tokens_.acceptSymbol(symbol))
    failExpecting(quoted(symbol));
}

void ParseContext::expectLineEnd() {
  const Token& found = tokens_.peek();
  if (found.kind == TokenKind::number && tokens_.previous().kind == TokenKind::number)
    fail(ErrorNumber::unexpectedToken, "A number can’t go after this number.", found.range);
  if (!tokens_.acceptLineEnd() && !tokens_.atScriptEnd())
    failExpecting("the end of the line");
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
