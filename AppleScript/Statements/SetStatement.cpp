#include "AppleScript/Statements/SetStatement.h"

#include <utility>

#include "AppleScript/Values/DeepCopy.h"

namespace AppleScript {

SetStatement::SetStatement(ExpressionPointer target, ExpressionPointer value, Sharing sharing)
    : target_(std::move(target)), value_(std::move(value)), sharing_(sharing) {}

Flow SetStatement::execute(Run& run) const {
  Value value = value_->evaluate(run);
  if (sharing_ == Sharing::copied)
    value = deepCopy(value);
  target_->assign(run, value);
  run.noteStatement(std::move(value));
  return Flow::next;
}

}  // namespace AppleScript
