#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

/// A number, a text, a class name or any other value that is written down as such.
class LiteralExpression : public Expression {
 public:
  LiteralExpression(Value value, SourceRange range) : Expression(range), value_(std::move(value)) {}

  [[nodiscard]] std::optional<Value> valueAtHand(Run& /*run*/) const override { return value_; }

 private:
  [[nodiscard]] Value compute(Run& /*run*/) const override { return value_; }

  Value value_;
};

/// `{a, b}`: a new list each time it is evaluated; as the target of `set`, a pattern.
class ListExpression : public Expression {
 public:
  ListExpression(std::vector<ExpressionPointer> items, SourceRange range);

  [[nodiscard]] bool isAssignable() const override;

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;

  std::vector<ExpressionPointer> items_;
};

/// `{name:"x", size:1}`: a new record each time it is evaluated.
class RecordExpression : public Expression {
 public:
  /// As many values as labels.
  RecordExpression(RecordLabels labels, std::vector<ExpressionPointer> values, SourceRange range);

 private:
  [[nodiscard]] Value compute(Run& run) const override;

  RecordLabels labels_;
  std::vector<ExpressionPointer> values_;
};

/// `POSIX file "…"`, `file "…"`, `alias "…"`.
class FileExpression : public Expression {
 public:
  FileExpression(ExpressionPointer path, SourceRange range) : Expression(range), path_(std::move(path)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return toFile(path_->evaluate(run)); }

  ExpressionPointer path_;
};

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

/// A variable, by the place that the parser gave to it.
class VariableExpression : public Expression {
 public:
  VariableExpression(std::string name, std::size_t slot, SourceRange range);

  [[nodiscard]] bool isAssignable() const override { return true; }
  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.variable(slot_); }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;

  std::string name_;
  std::size_t slot_;
};

/// `result`: the value of the last statement that had one. Scripts may set it like a variable.
class ResultExpression : public Expression {
 public:
  using Expression::Expression;

  [[nodiscard]] bool isAssignable() const override { return true; }
  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.result(); }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  void store(Run& run, Value value) const override;
};

/// `it`: what the innermost `tell` block addresses, or the object that a filter looks at.
class TargetExpression : public Expression {
 public:
  using Expression::Expression;

  [[nodiscard]] std::optional<Value> valueAtHand(Run& run) const override { return run.target(); }

 private:
  [[nodiscard]] Value compute(Run& run) const override { return run.target(); }
};

}  // namespace AppleScript
