#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/Statements/Statement.h"
#include "AppleScript/Values/ScriptError.h"

namespace AppleScript {

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

}  // namespace AppleScript
