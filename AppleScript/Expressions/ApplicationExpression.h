#pragma once

#include "AppleScript/Expressions/Expression.h"

namespace AppleScript {

/// `application "X"`.
class ApplicationExpression : public Expression {
 public:
  /// `known` is the application that the name, where it is written down, was found to mean.
  ApplicationExpression(ExpressionPointer name, Application* known, SourceRange range);

  [[nodiscard]] Application* addressedApplication() const override { return known_; }

 private:
  [[nodiscard]] Value compute(Run& run) const override;

  ExpressionPointer name_;
  Application* known_;
};

}  // namespace AppleScript
