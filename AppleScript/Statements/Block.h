#pragma once

#include <utility>
#include <vector>

#include "AppleScript/Statements/Statement.h"

namespace AppleScript {

/// Statements one after the other.
class Block : public Statement {
 public:
  explicit Block(std::vector<StatementPointer> statements) : statements_(std::move(statements)) {}

  Flow execute(Run& run) const override;

 private:
  std::vector<StatementPointer> statements_;
};

}  // namespace AppleScript
