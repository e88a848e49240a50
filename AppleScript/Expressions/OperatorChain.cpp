#include "AppleScript/Expressions/OperatorChain.h"

#include <utility>

#include "AppleScript/Operators/Arithmetic.h"
#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/Operators/Concatenation.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

namespace {

/// Whether `left` alone decides `left op …`, so that the rest is not evaluated.
bool decides(Operator op, const Value& left) {
  return (op == Operator::logicalAnd && !toBoolean(left)) || (op == Operator::logicalOr && toBoolean(left));
}

Value apply(Operator op, const Value& left, const Value& right, const Run& run) {
  switch (op) {
    case Operator::logicalAnd:
    case Operator::logicalOr:
      return toBoolean(right);
    case Operator::concatenate:
      return concatenated(left, right, run.delimiter());
    case Operator::coerce:
      return coerce(left, *right.getIf<ClassName>()->description, run.delimiter());
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

}  // namespace

OperatorChain::OperatorChain(ExpressionPointer first, std::vector<Link> links, Associativity associativity,
                             SourceRange range)
    : Expression(range), first_(std::move(first)), links_(std::move(links)), associativity_(associativity) {}

Value OperatorChain::compute(Run& run) const {
  return associativity_ == Associativity::right ? computeFromTheRight(run) : computeFromTheLeft(run);
}

Value OperatorChain::computeFromTheLeft(Run& run) const {
  Value value = first_->evaluate(run);
  for (const Link& link : links_) {
    if (decides(link.op, value))
      return toBoolean(value);
    value = apply(link.op, value, link.operand->evaluate(run), run);
  }
  return value;
}

Value OperatorChain::computeFromTheRight(Run& run) const {
  std::vector<Value> operands{first_->evaluate(run)};
  for (const Link& link : links_)
    operands.push_back(link.operand->evaluate(run));
  Value value = std::move(operands.back());
  for (std::size_t i = links_.size(); i > 0; --i)
    value = apply(links_[i - 1].op, operands[i - 1], value, run);
  return value;
}

}  // namespace AppleScript
