#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `return x` and `return`.
class ReturnStatement : public Statement {
 public:
  /// `value` is null where the script returns nothing.
  explicit ReturnStatement(ExpressionPointer value) : value_(std::move(value)) {}

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer value_;
};

}  // namespace AppleScript
