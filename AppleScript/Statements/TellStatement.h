#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `tell x … end tell` and `tell x to …`.
class TellStatement : public Statement {
 public:
  TellStatement(ExpressionPointer target, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer target_;
  StatementPointer body_;
};

}  // namespace AppleScript
