#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Operators/Operators.h"

namespace AppleScript {

/// `a & b & c`: operators of one precedence and their operands. One expression for the whole chain, so that a long one
/// is no deeper than a short one.
class OperatorChain : public Expression {
 public:
  struct Link {
    Operator op;
    ExpressionPointer operand;
  };

  OperatorChain(ExpressionPointer first, std::vector<Link> links, Associativity associativity, SourceRange range);

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  [[nodiscard]] Value computeFromTheLeft(Run& run) const;
  [[nodiscard]] Value computeFromTheRight(Run& run) const;

  ExpressionPointer first_;
  std::vector<Link> links_;
  Associativity associativity_;
};

}  // namespace AppleScript
