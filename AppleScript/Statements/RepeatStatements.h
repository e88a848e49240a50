#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statements.h"

namespace AppleScript {

/// `repeat … end repeat`: runs until `exit repeat`. The base of the other loops.
class RepeatStatement : public Statement {
 public:
  explicit RepeatStatement(StatementPointer body) : body_(std::move(body)) {}

  Flow execute(Run& run) const override;

 protected:
  /// Runs the body once. `nullopt` if the loop goes on, otherwise the result of the whole statement.
  [[nodiscard]] std::optional<Flow> round(Run& run) const;

 private:
  StatementPointer body_;
};

/// `repeat n times`.
class RepeatTimesStatement : public RepeatStatement {
 public:
  RepeatTimesStatement(ExpressionPointer times, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer times_;
};

/// `repeat while …` and `repeat until …`.
class RepeatWhileStatement : public RepeatStatement {
 public:
  /// Repeats while `condition` is `expected`.
  RepeatWhileStatement(ExpressionPointer condition, bool expected, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer condition_;
  bool expected_;
};

/// `repeat with i from a to b by c`. The bounds are evaluated once.
class RepeatRangeStatement : public RepeatStatement {
 public:
  struct Bounds {
    ExpressionPointer first;
    ExpressionPointer last;
    /// Null means 1.
    ExpressionPointer step;
  };

  RepeatRangeStatement(ExpressionPointer variable, Bounds bounds, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer variable_;
  Bounds bounds_;
};

/// `repeat with x in list`: the variable becomes a reference to each item in turn.
class RepeatItemsStatement : public RepeatStatement {
 public:
  RepeatItemsStatement(ExpressionPointer variable, ExpressionPointer list, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer variable_;
  ExpressionPointer list_;
};

/// `exit repeat`.
class ExitRepeatStatement : public Statement {
 public:
  Flow execute(Run& /*run*/) const override { return Flow::exitRepeat; }
};

}  // namespace AppleScript
