#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/ScriptError.h"

namespace AppleScript {

/// Where a run goes on behind a statement.
enum class Flow : std::uint8_t { next, exitRepeat, endScript };

/// A piece of a script that does something.
class Statement {
 public:
  Statement() = default;
  virtual ~Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  /// Throws script errors.
  virtual Flow execute(Run& run) const = 0;
};

using StatementPointer = std::unique_ptr<const Statement>;

/// Statements one after the other.
class Block : public Statement {
 public:
  explicit Block(std::vector<StatementPointer> statements) : statements_(std::move(statements)) {}

  Flow execute(Run& run) const override;

 private:
  std::vector<StatementPointer> statements_;
};

/// An expression, `get` before it or not, or a command, for what it does and for its value.
class ExpressionStatement : public Statement {
 public:
  explicit ExpressionStatement(ExpressionPointer expression) : expression_(std::move(expression)) {}

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer expression_;
};

/// `set x to value`, which shares lists and records, and `copy value to x`, which does not.
class SetStatement : public Statement {
 public:
  enum class Sharing { shared, copied };

  SetStatement(ExpressionPointer target, ExpressionPointer value, Sharing sharing);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer target_;
  ExpressionPointer value_;
  Sharing sharing_;
};

/// `return x` and `return`.
class ReturnStatement : public Statement {
 public:
  /// `value` is null where the script returns nothing.
  explicit ReturnStatement(ExpressionPointer value) : value_(std::move(value)) {}

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer value_;
};

/// `tell x … end tell` and `tell x to …`.
class TellStatement : public Statement {
 public:
  TellStatement(ExpressionPointer target, StatementPointer body);

  Flow execute(Run& run) const override;

 private:
  ExpressionPointer target_;
  StatementPointer body_;
};

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

/// `try … on error message number n … end try`.
class TryStatement : public Statement {
 public:
  /// What to do on an error. Each may be null.
  struct Handler {
    /// The variables that get the error's message and number.
    ExpressionPointer message;
    ExpressionPointer number;
    StatementPointer body;
  };

  TryStatement(StatementPointer body, Handler handler);

  Flow execute(Run& run) const override;

 private:
  Flow handle(Run& run, const ScriptError& error) const;

  StatementPointer body_;
  Handler handler_;
};

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
