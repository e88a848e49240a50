#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "AppleScript/Running/Run.h"

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

}  // namespace AppleScript
