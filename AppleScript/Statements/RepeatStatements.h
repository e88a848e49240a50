#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statements.h"

namespace AppleScript {

/// `repeat … end repeat`, without end but for `exit repeat`; the other loops build on it.
class RepeatStatement : public Statement {
 public:
  explicit RepeatStatement(StatementPointer body) : body_(std::move(body)) {}

  Flow execute(Run& run) const override;

 protected:
  /// One round. None where the loop goes on, otherwise how the statement ends.
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
  /// Repeats for as long as `condition` is `expected`.
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
    /// Null for steps of 1.
    ExpressionPointer step;
  };

  RepeatRangeStatement(ExpressionPointer variable, Bounds bounds, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer variable_;
  Bounds bounds_;
};

/// `repeat with x in list`: the variable is a reference to one item after the other.
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
