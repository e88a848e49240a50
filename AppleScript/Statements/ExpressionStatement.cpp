#include "AppleScript/Statements/ExpressionStatement.h"

namespace AppleScript {

Flow ExpressionStatement::execute(Run& run) const {
  Value value = expression_->evaluate(run);
  if (value.isMissing() && expression_->isCommand())
    run.noteStatementWithoutValue();
  else
    run.noteStatement(std::move(value));
  return Flow::next;
}

}  // namespace AppleScript
