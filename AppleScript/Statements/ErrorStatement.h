#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `error "text" number n`.
class ErrorStatement : public Statement {
 public:
  /// `message` and `number` are null where the script gives none.
  ErrorStatement(ExpressionPointer message, ExpressionPointer number, SourceRange range);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer message_;
  ExpressionPointer number_;
  SourceRange range_;
};

}  // namespace AppleScript
