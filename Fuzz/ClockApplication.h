#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "AppleScript/Values/Application.h"

namespace Fuzz {

/// Passes through a script that is stopped; no `try` of the language catches it.
struct Stopped {};

/// Bounds what a script does: the language itself has no limits, and a script may go on for ever. Scripts are run with
/// a command of this application behind each of their lines; it counts, and throws `Stopped` once it is enough.
class ClockApplication : public AppleScript::Application {
 public:
  /// The source with the command behind each line end, where a statement can begin, and with it at the beginning of
  /// every loop's body. The source must consist of tokens of the language.
  static std::string withTicks(std::string_view source);

  /// Begins to count anew.
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
