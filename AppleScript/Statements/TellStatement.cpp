#include "AppleScript/Statements/TellStatement.h"

#include <utility>

#include "AppleScript/Values/Dereference.h"

namespace AppleScript {

TellStatement::TellStatement(ExpressionPointer target, StatementPointer body)
    : target_(std::move(target)), body_(std::move(body)) {}

Flow TellStatement::execute(Run& run) const {
  const Value target = target_->evaluate(run);
  const TargetScope scope(run, dereferenced(target));
  return body_->execute(run);
}

}  // namespace AppleScript
