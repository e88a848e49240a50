#include "AppleScript/Operators/Operators.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

/// The exact result where it is an integer that fits.
std::optional<std::int64_t> calculateIntegers(Operator op, std::int64_t left, std::int64_t right) {
  std::int64_t result = 0;
  const bool leastByMinusOne = left == std::numeric_limits<std::int64_t>::min() && right == -1;
  switch (op) {
    case Operator::add:
      return __builtin_add_overflow(left, right, &result) ? std::nullopt : std::optional(result);
    case Operator::subtract:
      return __builtin_sub_overflow(left, right, &result) ? std::nullopt : std::optional(result);
    case Operator::multiply:
      return __builtin_mul_overflow(left, right, &result) ? std::nullopt : std::optional(result);
    case Operator::integerDivide:
      return leastByMinusOne ? std::nullopt : std::optional(left / right);
    case Operator::remainder:
      return leastByMinusOne ? 0 : left % right;
    default:
      return std::nullopt;
  }
}

double calculateReals(Operator op, double left, double right) {
  switch (op) {
    case Operator::add:
      return left + right;
    case Operator::subtract:
      return left - right;
    case Operator::multiply:
      return left * right;
    case Operator::divide:
      return left / right;
    case Operator::remainder:
      return std::fmod(left, right);
    default:
      return std::pow(left, right);
  }
}

bool divides(Operator op) {
  return op == Operator::divide || op == Operator::integerDivide || op == Operator::remainder;
}

/// An integer where it can be one, as `div` yields it.
Value wholePart(double number) {
  const double whole = std::trunc(number);
  constexpr double bound = -static_cast<double>(std::numeric_limits<std::int64_t>::min());
  return whole >= -bound && whole < bound ? Value(static_cast<std::int64_t>(whole)) : Value(whole);
}

Value finite(double number) {
  if (!std::isfinite(number))
    fail(ErrorNumber::numberTooLarge, "The result of a numeric operation was too large.");
  return number;
}

/// All fields of `left`, and those of `right` that `left` does not have.
Record merged(const Record& left, const Record& right) {
  std::vector<std::string> labels;
  std::vector<Value> values;
  for (const Record* record : {&left, &right}) {
    for (std::size_t i = 0; i < record->size(); ++i) {
      if (record == &left || !left.find(record->label(i))) {
        labels.emplace_back(record->label(i));
        values.push_back(record->value(i));
      }
    }
  }
  return {std::make_shared<const std::vector<std::string>>(std::move(labels)), std::move(values)};
}

List joined(const List& left, const List& right) {
  std::vector<Value> items;
  items.reserve(left.size() + right.size());
  items.insert(items.end(), left.items().begin(), left.items().end());
  items.insert(items.end(), right.items().begin(), right.items().end());
  return List(std::move(items));
}

}  // namespace

Value applied(Operator op, const Value& left, const Value& right, std::string_view delimiter) {
  switch (op) {
    case Operator::logicalAnd:
    case Operator::logicalOr:
      return toBoolean(right);
    case Operator::concatenate:
      return concatenated(left, right, delimiter);
    case Operator::coerce:
      return coerce(left, *right.getIf<ClassName>()->description, delimiter);
    case Operator::equal:
      return areEqual(left, right);
    case Operator::notEqual:
      return !areEqual(left, right);
    case Operator::less:
      return order(left, right) < 0;
    case Operator::lessOrEqual:
      return order(left, right) <= 0;
    case Operator::greater:
      return order(left, right) > 0;
    case Operator::greaterOrEqual:
      return order(left, right) >= 0;
    case Operator::contains:
      return contains(left, right);
    case Operator::doesNotContain:
      return !contains(left, right);
    case Operator::isIn:
      return contains(right, left);
    case Operator::isNotIn:
      return !contains(right, left);
    case Operator::startsWith:
      return startsWith(left, right);
    case Operator::doesNotStartWith:
      return !startsWith(left, right);
    case Operator::endsWith:
      return endsWith(left, right);
    case Operator::doesNotEndWith:
      return !endsWith(left, right);
    default:
      return calculate(op, left, right);
  }
}

Value calculate(Operator op, const Value& left, const Value& right) {
  const Value first = toNumber(left);
  const Value second = toNumber(right);
  if (divides(op) && toReal(second) == 0)
    fail(ErrorNumber::divideByZero, "Can’t divide " + shortSourceForm(first) + " by zero.");
  if (first.is<std::int64_t>() && second.is<std::int64_t>()) {
    if (const auto exact = calculateIntegers(op, *first.getIf<std::int64_t>(), *second.getIf<std::int64_t>()))
      return *exact;
  }
  if (op == Operator::integerDivide)
    return wholePart(calculateReals(Operator::divide, toReal(first), toReal(second)));
  return finite(calculateReals(op, toReal(first), toReal(second)));
}

Value negated(const Value& value) {
  return calculate(Operator::subtract, 0, value);
}

Value concatenated(const Value& left, const Value& right, std::string_view delimiter) {
  const Value& first = dereferenced(left);
  const Value& second = dereferenced(right);
  if (const auto* text = first.getIf<Text>())
    return text->appending(toText(second, delimiter).view());
  if (first.is<Record>() && second.is<Record>())
    return merged(*first.getIf<Record>(), *second.getIf<Record>());
  return joined(toList(first), toList(second));
}

}  // namespace AppleScript
