#include "AppleScript/Syntax/StatementParser.h"

#include <array>
#include <utility>
#include <vector>

#include "AppleScript/Statements/RepeatStatements.h"
#include "AppleScript/Statements/Statements.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/ParseContext.h"
#include "AppleScript/Syntax/ReferenceParser.h"
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

void StatementParser::expectEnd(Keyword word) {
  context_.expectWord(Keyword::end);
  context_.tokens().acceptWord(word);
}

/// One statement, up to the end of its line. Commands of applications come first: they may begin like statements.
StatementPointer StatementParser::parseStatement() {
  const NestingScope nesting(context_);
  if (context_.findTerm({TermKind::command}))
    return parseExpressionStatement();
  struct Kind {
    Keyword word;
    StatementPointer (StatementParser::*parse)();
  };
  static constexpr auto kinds = std::to_array<Kind>({{Keyword::tell, &StatementParser::parseTell},
                                                     {Keyword::if_, &StatementParser::parseIf},
                                                     {Keyword::try_, &StatementParser::parseTry},
                                                     {Keyword::set, &StatementParser::parseSet},
                                                     {Keyword::copy, &StatementParser::parseCopy},
                                                     {Keyword::return_, &StatementParser::parseReturn},
                                                     {Keyword::exit, &StatementParser::parseExit},
                                                     {Keyword::error, &StatementParser::parseError}});
  for (const Kind& kind : kinds)
    if (context_.tokens().acceptWord(kind.word))
      return (this->*kind.parse)();
  return context_.tokens().acceptWord(Keyword::repeat) ? RepeatParser(context_).parse() : parseExpressionStatement();
}

StatementPointer StatementParser::parseTell() {
  ExpressionPointer target = ReferenceParser(context_).parse();
  const TellScope scope(context_, target->addressedApplication());
  if (context_.tokens().acceptWord(Keyword::to))
    return std::make_unique<TellStatement>(std::move(target), parseStatement());
  context_.expectLineEnd();
  StatementPointer body = parseBlock();
  expectEnd(Keyword::tell);
  return std::make_unique<TellStatement>(std::move(target), std::move(body));
}

StatementPointer StatementParser::parseIf() {
  TokenStream& tokens = context_.tokens();
  ExpressionPointer condition = ExpressionParser(context_).parse();
  const bool hasThen = tokens.acceptWord(Keyword::then);
  if (!hasThen || tokens.atLineEnd())
    return parseIfBlock(std::move(condition));
  std::vector<IfStatement::Branch> branches;
  branches.push_back({std::move(condition), parseStatement()});
  StatementPointer otherwise = tokens.acceptWord(Keyword::else_) ? parseStatement() : nullptr;
  return std::make_unique<IfStatement>(std::move(branches), std::move(otherwise));
}

StatementPointer StatementParser::parseIfBlock(ExpressionPointer condition) {
  TokenStream& tokens = context_.tokens();
  std::vector<IfStatement::Branch> branches;
  StatementPointer otherwise;
  context_.expectLineEnd();
  branches.push_back({std::move(condition), parseBlock()});
  while (otherwise == nullptr && tokens.acceptWord(Keyword::else_)) {
    ExpressionPointer next = tokens.acceptWord(Keyword::if_) ? ExpressionParser(context_).parse() : nullptr;
    if (next != nullptr)
      tokens.acceptWord(Keyword::then);
    context_.expectLineEnd();
    if (next != nullptr)
      branches.push_back({std::move(next), parseBlock()});
    else
      otherwise = parseBlock();
  }
  expectEnd(Keyword::if_);
  return std::make_unique<IfStatement>(std::move(branches), std::move(otherwise));
}

StatementPointer StatementParser::parseTry() {
  TokenStream& tokens = context_.tokens();
  context_.expectLineEnd();
  StatementPointer body = parseBlock();
  TryStatement::Handler handler;
  if (tokens.acceptWord(Keyword::on)) {
    context_.expectWord(Keyword::error);
    KeyParser variables(context_);
    if (!tokens.atLineEnd() && !tokens.atWord(Keyword::number))
      handler.message = variables.parseVariable();
    if (tokens.acceptWord(Keyword::number))
      handler.number = variables.parseVariable();
    context_.expectLineEnd();
    handler.body = parseBlock();
  }
  expectEnd(Keyword::try_);
  return std::make_unique<TryStatement>(std::move(body), std::move(handler));
}

StatementPointer StatementParser::parseSet() {
  ExpressionPointer target = parseTarget();
  context_.expectWord(Keyword::to);
  ExpressionPointer value = ExpressionParser(context_).parse();
  return std::make_unique<SetStatement>(std::move(target), std::move(value), SetStatement::Sharing::shared);
}

StatementPointer StatementParser::parseCopy() {
  ExpressionPointer value = ExpressionParser(context_).parse();
  context_.expectWord(Keyword::to);
  return std::make_unique<SetStatement>(parseTarget(), std::move(value), SetStatement::Sharing::copied);
}

StatementPointer StatementParser::parseReturn() {
  ExpressionPointer value = context_.tokens().atLineEnd() ? nullptr : ExpressionParser(context_).parse();
  return std::make_unique<ReturnStatement>(std::move(value));
}

StatementPointer StatementParser::parseExit() {
  context_.tokens().acceptWord(Keyword::repeat);
  return std::make_unique<ExitRepeatStatement>();
}

StatementPointer StatementParser::parseError() {
  TokenStream& tokens = context_.tokens();
  const std::size_t start = tokens.position() - 1;
  const bool hasMessage = !tokens.atLineEnd() && !tokens.atWord(Keyword::number);
  ExpressionPointer message = hasMessage ? ExpressionParser(context_).parse() : nullptr;
  ExpressionPointer number = tokens.acceptWord(Keyword::number) ? ExpressionParser(context_).parse() : nullptr;
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
  const bool atHandler = tokens.atWord(Keyword::on) && tokens.atWord(Keyword::error, 1);
  return tokens.atWord(Keyword::end) || tokens.atWord(Keyword::else_) || atHandler;
}

StatementPointer RepeatParser::parse() {
  TokenStream& tokens = context_.tokens();
  if (tokens.atLineEnd())
    return std::make_unique<RepeatStatement>(parseBody());
  if (tokens.acceptWord(Keyword::while_))
    return parseWhile(true);
  if (tokens.acceptWord(Keyword::until))
    return parseWhile(false);
  return tokens.acceptWord(Keyword::with) ? parseWith() : parseTimes();
}

StatementPointer RepeatParser::parseWhile(bool expected) {
  ExpressionPointer condition = ExpressionParser(context_).parse();
  return std::make_unique<RepeatWhileStatement>(std::move(condition), expected, parseBody());
}

StatementPointer RepeatParser::parseTimes() {
  ExpressionPointer times = ExpressionParser(context_).parse();
  context_.expectWord(Keyword::times);
  return std::make_unique<RepeatTimesStatement>(std::move(times), parseBody());
}

StatementPointer RepeatParser::parseWith() {
  ExpressionPointer variable = KeyParser(context_).parseVariable();
  if (context_.tokens().acceptWord(Keyword::from))
    return parseRange(std::move(variable));
  context_.expectWord(Keyword::in);
  ExpressionPointer list = ExpressionParser(context_).parse();
  return std::make_unique<RepeatItemsStatement>(std::move(variable), std::move(list), parseBody());
}

StatementPointer RepeatParser::parseRange(ExpressionPointer variable) {
  RepeatRangeStatement::Bounds bounds;
  bounds.first = ExpressionParser(context_).parse();
  context_.expectWord(Keyword::to);
  bounds.last = ExpressionParser(context_).parse();
  if (context_.tokens().acceptWord(Keyword::by))
    bounds.step = ExpressionParser(context_).parse();
  return std::make_unique<RepeatRangeStatement>(std::move(variable), std::move(bounds), parseBody());
}

StatementPointer RepeatParser::parseBody() {
  context_.expectLineEnd();
  StatementParser statements(context_);
  StatementPointer body = statements.parseBlock();
  statements.expectEnd(Keyword::repeat);
  return body;
}

}  // namespace AppleScript
