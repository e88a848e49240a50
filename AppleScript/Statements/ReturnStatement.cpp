#include "AppleScript/Statements/ReturnStatement.h"

namespace AppleScript {

Flow ReturnStatement::execute(Run& run) const {
  if (value_ == nullptr)
    run.noteStatementWithoutValue();
  else
    run.noteStatement(value_->evaluate(run));
  return Flow::endScript;
}

}  // namespace AppleScript
