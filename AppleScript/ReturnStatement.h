#pragma once

#include <utility>

#include "AppleScript/Expression.h"
#include "AppleScript/Statement.h"

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
