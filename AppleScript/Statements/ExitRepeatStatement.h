#pragma once

#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// `exit repeat`.
class ExitRepeatStatement : public Statement {
 public:
  Flow execute(Run& /*run*/) const override { return Flow::exitRepeat; }
};

}  // namespace AppleScript
