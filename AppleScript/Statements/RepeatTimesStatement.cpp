#include "AppleScript/Statements/RepeatTimesStatement.h"

#include <utility>

#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

RepeatTimesStatement::RepeatTimesStatement(ExpressionPointer times, StatementPointer body)
    : RepeatStatement(std::move(body)), times_(std::move(times)) {}

Flow RepeatTimesStatement::execute(Run& run) const {
  for (std::int64_t left = times_->evaluateAs(run, toInteger); left > 0; --left)
    if (const auto end = round(run))
      return *end;
  return Flow::next;
}

}  // namespace AppleScript
