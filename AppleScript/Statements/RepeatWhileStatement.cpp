#include "AppleScript/Statements/RepeatWhileStatement.h"

#include <utility>

#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

RepeatWhileStatement::RepeatWhileStatement(ExpressionPointer condition, bool expected, StatementPointer body)
    : RepeatStatement(std::move(body)), condition_(std::move(condition)), expected_(expected) {}

Flow RepeatWhileStatement::execute(Run& run) const {
  while (condition_->evaluateAs(run, toBoolean) == expected_)
    if (const auto end = round(run))
      return *end;
  return Flow::next;
}

}  // namespace AppleScript
