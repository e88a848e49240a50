#include "AppleScript/RepeatRangeStatement.h"

#include <utility>

#include "AppleScript/Arithmetic.h"
#include "AppleScript/Coercions.h"
#include "AppleScript/Comparison.h"
#include "AppleScript/Failure.h"

namespace AppleScript {

RepeatRangeStatement::RepeatRangeStatement(ExpressionPointer variable, Bounds bounds, StatementPointer body)
    : RepeatStatement(std::move(body)), variable_(std::move(variable)), bounds_(std::move(bounds)) {}

Flow RepeatRangeStatement::execute(Run& run) const {
  Value current = toNumber(bounds_.first->evaluate(run));
  const Value last = toNumber(bounds_.last->evaluate(run));
  const Value step = bounds_.step == nullptr ? Value(1) : toNumber(bounds_.step->evaluate(run));
  const double direction = toReal(step);
  if (direction == 0) {
    fail(ErrorNumber::genericError, "Can’t repeat in steps of 0.");
  }
  while (direction > 0 ? order(current, last) <= 0 : order(current, last) >= 0) {
    variable_->assign(run, current);
    if (const auto end = round(run)) {
      return *end;
    }
    current = calculate(Operator::add, current, step);
  }
  return Flow::next;
}

}  // namespace AppleScript
