#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Operators/Operators.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Dictionary.h"

namespace AppleScript {

/// `a & b & c`: operators of one precedence and their operands. One expression for the whole chain, so that a long one
/// is no deeper than a short one.
class OperatorChain : public Expression {
 public:
  struct Link {
    Operator op;
    ExpressionPointer operand;
  };

  OperatorChain(ExpressionPointer first, std::vector<Link> links, Associativity associativity, SourceRange range);

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  [[nodiscard]] Value computeFromTheLeft(Run& run) const;
  [[nodiscard]] Value computeFromTheRight(Run& run) const;

  ExpressionPointer first_;
  std::vector<Link> links_;
  Associativity associativity_;
};

/// `-x`.
class NegationExpression : public Expression {
 public:
  NegationExpression(ExpressionPointer operand, SourceRange range) : Expression(range), operand_(std::move(operand)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return negated(operand_->evaluate(run)); }

  ExpressionPointer operand_;
};

/// `not x`.
class NotExpression : public Expression {
 public:
  NotExpression(ExpressionPointer operand, SourceRange range) : Expression(range), operand_(std::move(operand)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return !toBoolean(operand_->evaluate(run)); }

  ExpressionPointer operand_;
};

/// `get …`: the value itself, where a reference alone would go on to stand for many objects.
class GetExpression : public Expression {
 public:
  GetExpression(ExpressionPointer inner, SourceRange range) : Expression(range), inner_(std::move(inner)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override { return inner_->evaluate(run); }

  ExpressionPointer inner_;
};

/// `exists window 1`: whether the reference leads to something.
class ExistsExpression : public Expression {
 public:
  ExistsExpression(ExpressionPointer reference, SourceRange range)
      : Expression(range), reference_(std::move(reference)) {}

 private:
  [[nodiscard]] Value compute(Run& run) const override;

  ExpressionPointer reference_;
};

/// A command of an application with what it is given.
class CommandExpression : public Expression {
 public:
  using Labelled = std::pair<std::string_view, ExpressionPointer>;

  /// `direct` is null where nothing stands directly behind the command's name.
  CommandExpression(const CommandDescription& command, Application& application, ExpressionPointer direct,
                    std::vector<Labelled> labelled, SourceRange range);

  [[nodiscard]] bool isCommand() const override { return true; }

 private:
  [[nodiscard]] Value compute(Run& run) const override;
  [[nodiscard]] Arguments arguments(Run& run) const;
  void requireAllParameters() const;

  const CommandDescription& command_;
  Application& application_;
  ExpressionPointer direct_;
  std::vector<Labelled> labelled_;
};

}  // namespace AppleScript
