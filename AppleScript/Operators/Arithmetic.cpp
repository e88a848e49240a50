#include "AppleScript/Operators/Arithmetic.h"

#include <cmath>
#include <limits>
#include <optional>
#include <string>

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

}  // namespace

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

}  // namespace AppleScript
