#pragma once

#include <utility>

#include "AppleScript/Statements/Statement.h"

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

}  // namespace AppleScript
