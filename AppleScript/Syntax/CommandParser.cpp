#include "AppleScript/Syntax/CommandParser.h"

#include <utility>

#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/ParseScopes.h"
#include "AppleScript/Syntax/ReservedWords.h"

namespace AppleScript {

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
      return !context_.findLabel() && !isReservedWord(token.lexeme);
    default:
      return !tokens.atLineEnd();
  }
}

}  // namespace AppleScript
