#include "AppleScript/Syntax/StatementParser.h"

#include <array>
#include <utility>
#include <vector>

#include "AppleScript/Statements/Block.h"
#include "AppleScript/Statements/ErrorStatement.h"
#include "AppleScript/Statements/ExitRepeatStatement.h"
#include "AppleScript/Statements/ExpressionStatement.h"
#include "AppleScript/Statements/IfStatement.h"
#include "AppleScript/Statements/ReturnStatement.h"
#include "AppleScript/Statements/SetStatement.h"
#include "AppleScript/Statements/TellStatement.h"
#include "AppleScript/Statements/TryStatement.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/KeyParser.h"
#include "AppleScript/Syntax/ParseScopes.h"
#include "AppleScript/Syntax/ReferenceParser.h"
#include "AppleScript/Syntax/RepeatParser.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

StatementPointer StatementParser::parseScript() {
  StatementPointer script = parseBlock();
  if (!context_.tokens().atScriptEnd())
    context_.failExpecting("expression");
  return script;
}

StatementPointer StatementParser::parseBlock() {
  std::vector<StatementPointer> statements;
  while (true) {
    while (context_.tokens().acceptLineEnd()) {
    }
    if (context_.tokens().atScriptEnd() || atBlockEnd())
      return std::make_unique<Block>(std::move(statements));
    statements.push_back(parseStatement());
    context_.expectLineEnd();
  }
}

void StatementParser::expectEnd(std::string_view word) {
  context_.expectWord("end");
  context_.tokens().acceptWord(word);
}

/// One statement, up to the end of its line. Commands of applications come first: they may begin like statements.
StatementPointer StatementParser::parseStatement() {
  const NestingScope nesting(context_);
  if (context_.findTerm({TermKind::command}))
    return parseExpressionStatement();
  struct Kind {
    std::string_view word;
    StatementPointer (StatementParser::*parse)();
  };
  static constexpr auto kinds = std::to_array<Kind>({{"tell", &StatementParser::parseTell},
                                                     {"if", &StatementParser::parseIf},
                                                     {"try", &StatementParser::parseTry},
                                                     {"set", &StatementParser::parseSet},
                                                     {"copy", &StatementParser::parseCopy},
                                                     {"return", &StatementParser::parseReturn},
                                                     {"exit", &StatementParser::parseExit},
                                                     {"error", &StatementParser::parseError}});
  for (const Kind& kind : kinds)
    if (context_.tokens().acceptWord(kind.word))
      return (this->*kind.parse)();
  return context_.tokens().acceptWord("repeat") ? RepeatParser(context_).parse() : parseExpressionStatement();
}

StatementPointer StatementParser::parseTell() {
  ExpressionPointer target = ReferenceParser(context_).parse();
  const TellScope scope(context_, target->addressedApplication());
  if (context_.tokens().acceptWord("to"))
    return std::make_unique<TellStatement>(std::move(target), parseStatement());
  context_.expectLineEnd();
  StatementPointer body = parseBlock();
  expectEnd("tell");
  return std::make_unique<TellStatement>(std::move(target), std::move(body));
}

StatementPointer StatementParser::parseIf() {
  TokenStream& tokens = context_.tokens();
  ExpressionPointer condition = ExpressionParser(context_).parse();
  const bool hasThen = tokens.acceptWord("then");
  if (!hasThen || tokens.atLineEnd())
    return parseIfBlock(std::move(condition));
  std::vector<IfStatement::Branch> branches;
  branches.push_back({std::move(condition), parseStatement()});
  StatementPointer otherwise = tokens.acceptWord("else") ? parseStatement() : nullptr;
  return std::make_unique<IfStatement>(std::move(branches), std::move(otherwise));
}

StatementPointer StatementParser::parseIfBlock(ExpressionPointer condition) {
  TokenStream& tokens = context_.tokens();
  std::vector<IfStatement::Branch> branches;
  StatementPointer otherwise;
  context_.expectLineEnd();
  branches.push_back({std::move(condition), parseBlock()});
  while (otherwise == nullptr && tokens.acceptWord("else")) {
    ExpressionPointer next = tokens.acceptWord("if") ? ExpressionParser(context_).parse() : nullptr;
    if (next != nullptr)
      tokens.acceptWord("then");
    context_.expectLineEnd();
    if (next != nullptr)
      branches.push_back({std::move(next), parseBlock()});
    else
      otherwise = parseBlock();
  }
  expectEnd("if");
  return std::make_unique<IfStatement>(std::move(branches), std::move(otherwise));
}

StatementPointer StatementParser::parseTry() {
  TokenStream& tokens = context_.tokens();
  context_.expectLineEnd();
  StatementPointer body = parseBlock();
  TryStatement::Handler handler;
  if (tokens.acceptWord("on")) {
    context_.expectWord("error");
    KeyParser variables(context_);
    if (!tokens.atLineEnd() && !tokens.atWord("number"))
      handler.message = variables.parseVariable();
    if (tokens.acceptWord("number"))
      handler.number = variables.parseVariable();
    context_.expectLineEnd();
    handler.body = parseBlock();
  }
  expectEnd("try");
  return std::make_unique<TryStatement>(std::move(body), std::move(handler));
}

StatementPointer StatementParser::parseSet() {
  ExpressionPointer target = parseTarget();
  context_.expectWord("to");
  ExpressionPointer value = ExpressionParser(context_).parse();
  return std::make_unique<SetStatement>(std::move(target), std::move(value), SetStatement::Sharing::shared);
}

StatementPointer StatementParser::parseCopy() {
  ExpressionPointer value = ExpressionParser(context_).parse();
  context_.expectWord("to");
  return std::make_unique<SetStatement>(parseTarget(), std::move(value), SetStatement::Sharing::copied);
}

StatementPointer StatementParser::parseReturn() {
  ExpressionPointer value = context_.tokens().atLineEnd() ? nullptr : ExpressionParser(context_).parse();
  return std::make_unique<ReturnStatement>(std::move(value));
}

StatementPointer StatementParser::parseExit() {
  context_.tokens().acceptWord("repeat");
  return std::make_unique<ExitRepeatStatement>();
}

StatementPointer StatementParser::parseError() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position() - 1;
  const bool hasMessage = !tokens.atLineEnd() && !tokens.atWord("number");
  ExpressionPointer message = hasMessage ? ExpressionParser(context_).parse() : nullptr;
  ExpressionPointer number = tokens.acceptWord("number") ? ExpressionParser(context_).parse() : nullptr;
  return std::make_unique<ErrorStatement>(std::move(message), std::move(number), tokens.rangeSince(start));
}

StatementPointer StatementParser::parseExpressionStatement() {
  return std::make_unique<ExpressionStatement>(ExpressionParser(context_).parse());
}

ExpressionPointer StatementParser::parseTarget() {
  TokenStream& tokens = context_.tokens();
  const Token& first = tokens.peek();
  ExpressionPointer target = ReferenceParser(context_).parse();
  if (!target->isAssignable())
    fail(ErrorNumber::syntaxError, "Can’t set this expression to something.", first.range);
  return target;
}

bool StatementParser::atBlockEnd() {
  const TokenStream& tokens = context_.tokens();
  const bool atHandler = tokens.atWord("on") && tokens.atWord("error", 1);
  return tokens.atWord("end") || tokens.atWord("else") || atHandler;
}

}  // namespace AppleScript
