#pragma once

#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `if … then …`, with `else if` and `else`.
class IfStatement : public Statement {
 public:
  struct Branch {
    ExpressionPointer condition;
    StatementPointer body;
  };

  /// `otherwise` is null where there is no `else`.
  IfStatement(std::vector<Branch> branches, StatementPointer otherwise);

  Flow execute(Run& run) const override;

 private:
  std::vector<Branch> branches_;
  StatementPointer otherwise_;
};

}  // namespace AppleScript
