#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// An expression, `get` before it or not, or a command, for what it does and for its value.
class ExpressionStatement : public Statement {
 public:
  explicit ExpressionStatement(ExpressionPointer expression) : expression_(std::move(expression)) {}

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer expression_;
};

}  // namespace AppleScript
