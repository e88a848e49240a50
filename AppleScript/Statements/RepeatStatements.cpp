#include "AppleScript/Statements/RepeatStatements.h"

#include <utility>

#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/Operators/Operators.h"
#include "AppleScript/References/Elements.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

/// The list to walk through: that itself, or the characters of a text.
List listToWalk(Run& run, const Value& value) {
  const Value& whole = dereferenced(value);
  if (const auto* list = whole.getIf<List>())
    return *list;
  const auto characters = Elements::in(run, whole, BuiltInClasses::character);
  if (!characters)
    failToGet("every item of " + shortSourceForm(whole));
  return *characters->range(0, characters->size()).getIf<List>();
}

}  // namespace

Flow RepeatStatement::execute(Run& run) const {
  while (true)
    if (const auto end = round(run))
      return *end;
}

std::optional<Flow> RepeatStatement::round(Run& run) const {
  switch (body_->execute(run)) {
    case Flow::exitRepeat:
      return Flow::next;
    case Flow::endScript:
      return Flow::endScript;
    case Flow::next:
      break;
  }
  return std::nullopt;
}

RepeatTimesStatement::RepeatTimesStatement(ExpressionPointer times, StatementPointer body)
    : RepeatStatement(std::move(body)), times_(std::move(times)) {}

Flow RepeatTimesStatement::execute(Run& run) const {
  for (std::int64_t left = times_->evaluateAs(run, toInteger); left > 0; --left)
    if (const auto end = round(run))
      return *end;
  return Flow::next;
}

RepeatWhileStatement::RepeatWhileStatement(ExpressionPointer condition, bool expected, StatementPointer body)
    : RepeatStatement(std::move(body)), condition_(std::move(condition)), expected_(expected) {}

Flow RepeatWhileStatement::execute(Run& run) const {
  while (condition_->evaluateAs(run, toBoolean) == expected_)
    if (const auto end = round(run))
      return *end;
  return Flow::next;
}

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

RepeatItemsStatement::RepeatItemsStatement(ExpressionPointer variable, ExpressionPointer list, StatementPointer body)
    : RepeatStatement(std::move(body)), variable_(std::move(variable)), list_(std::move(list)) {}

Flow RepeatItemsStatement::execute(Run& run) const {
  const List list = list_->evaluateAs(run, [&run](const Value& value) { return listToWalk(run, value); });
  // Items that the body adds are not walked through.
  const std::size_t size = list.size();
  for (std::size_t i = 0; i < size; ++i) {
    variable_->assign(run, ItemReference{list, i});
    if (const auto end = round(run))
      return *end;
  }
  return Flow::next;
}

}  // namespace AppleScript
