#include "AppleScript/Statements/RepeatRangeStatement.h"

#include <utility>

#include "AppleScript/Operators/Arithmetic.h"
#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"

namespace AppleScript {

RepeatRangeStatement::RepeatRangeStatement(ExpressionPointer variable, Bounds bounds, StatementPointer body)
    : RepeatStatement(std::move(body)), variable_(std::move(variable)), bounds_(std::move(bounds)) {}

Flow RepeatRangeStatement::execute(Run& run) const {
  Value current = bounds_.first->evaluateAs(run, toNumber);
  const Value last = bounds_.last->evaluateAs(run, toNumber);
  const Value step = bounds_.step == nullptr ? Value(1) : bounds_.step->evaluateAs(run, toNumber);
  const double direction = toReal(step);
  if (direction == 0)
    fail(ErrorNumber::genericError, "Can’t repeat in steps of 0.", bounds_.step->range());
  while (direction > 0 ? order(current, last) <= 0 : order(current, last) >= 0) {
    variable_->assign(run, current);
    if (const auto end = round(run))
      return *end;
    current = calculate(Operator::add, current, step);
  }
  return Flow::next;
}

}  // namespace AppleScript
