#include "AppleScript/Statements/IfStatement.h"

#include <utility>

#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

IfStatement::IfStatement(std::vector<Branch> branches, StatementPointer otherwise)
    : branches_(std::move(branches)), otherwise_(std::move(otherwise)) {}

Flow IfStatement::execute(Run& run) const {
  for (const Branch& branch : branches_)
    if (branch.condition->evaluateAs(run, toBoolean))
      return branch.body->execute(run);
  return otherwise_ == nullptr ? Flow::next : otherwise_->execute(run);
}

}  // namespace AppleScript
