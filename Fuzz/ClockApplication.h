#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "AppleScript/Values/Application.h"

namespace Fuzz {

/// Thrown to stop a script. The language's `try` does not catch it.
struct Stopped {};

/// Limits how long a script runs: the language has no limits, and a script may run forever. Scripts run with a command
/// of this application after each line. The command counts its calls and throws `Stopped` at the limit.
class ClockApplication : public AppleScript::Application {
 public:
  /// The source with the command after each line end, so also at the beginning of every loop's body. The source must
  /// consist of tokens of the language.
  static std::string withTicks(std::string_view source);

  /// Counts from zero again.
  void restart();

  [[nodiscard]] std::string_view name() const override { return "Clock"; }
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

 private:
  static AppleScript::Result<AppleScript::Value> tick(AppleScript::Application& application,
                                                      const AppleScript::Arguments& arguments);

  std::size_t ticks_ = 0;
  std::size_t bytesAtStart_ = 0;
};

}  // namespace Fuzz
