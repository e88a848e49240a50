#include "AppleScript/Syntax/RepeatParser.h"

#include <utility>

#include "AppleScript/Statements/RepeatItemsStatement.h"
#include "AppleScript/Statements/RepeatRangeStatement.h"
#include "AppleScript/Statements/RepeatStatement.h"
#include "AppleScript/Statements/RepeatTimesStatement.h"
#include "AppleScript/Statements/RepeatWhileStatement.h"
#include "AppleScript/Syntax/ExpressionParser.h"
#include "AppleScript/Syntax/KeyParser.h"
#include "AppleScript/Syntax/StatementParser.h"

namespace AppleScript {

StatementPointer RepeatParser::parse() {
  TokenStream& tokens = context_.tokens();
  if (tokens.atLineEnd())
    return std::make_unique<RepeatStatement>(parseBody());
  if (tokens.acceptWord("while"))
    return parseWhile(true);
  if (tokens.acceptWord("until"))
    return parseWhile(false);
  return tokens.acceptWord("with") ? parseWith() : parseTimes();
}

StatementPointer RepeatParser::parseWhile(bool expected) {
  ExpressionPointer condition = ExpressionParser(context_).parse();
  return std::make_unique<RepeatWhileStatement>(std::move(condition), expected, parseBody());
}

StatementPointer RepeatParser::parseTimes() {
  ExpressionPointer times = ExpressionParser(context_).parse();
  context_.expectWord("times");
  return std::make_unique<RepeatTimesStatement>(std::move(times), parseBody());
}

StatementPointer RepeatParser::parseWith() {
  ExpressionPointer variable = KeyParser(context_).parseVariable();
  if (context_.tokens().acceptWord("from"))
    return parseRange(std::move(variable));
  context_.expectWord("in");
  ExpressionPointer list = ExpressionParser(context_).parse();
  return std::make_unique<RepeatItemsStatement>(std::move(variable), std::move(list), parseBody());
}

StatementPointer RepeatParser::parseRange(ExpressionPointer variable) {
  RepeatRangeStatement::Bounds bounds;
  bounds.first = ExpressionParser(context_).parse();
  context_.expectWord("to");
  bounds.last = ExpressionParser(context_).parse();
  if (context_.tokens().acceptWord("by"))
    bounds.step = ExpressionParser(context_).parse();
  return std::make_unique<RepeatRangeStatement>(std::move(variable), std::move(bounds), parseBody());
}

StatementPointer RepeatParser::parseBody() {
  context_.expectLineEnd();
  StatementParser statements(context_);
  StatementPointer body = statements.parseBlock();
  statements.expectEnd("repeat");
  return body;
}

}  // namespace AppleScript
