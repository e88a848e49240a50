#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// A compiled script (NSAppleScript).
class Script {
 public:
  /// Reads `source`, which must be UTF-8, with the dictionaries of the applications that its `tell` blocks name; asks
  /// no application anything. `applications` must outlive the script. Fails with a syntax error (-2740, -2741).
  static Result<Script> compile(std::string_view source, ApplicationDirectory& applications);

  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  Script(Script&&) noexcept;
  Script& operator=(Script&&) noexcept;
  ~Script();

  /// Runs the script to its end on the calling thread. Yields the value of the last statement run, none where that has
  /// no value; fails with the error that nothing in the script caught. Each run starts afresh.
  [[nodiscard]] Result<std::optional<Value>> run() const;

 private:
  struct Program;
  explicit Script(std::unique_ptr<const Program> program);
  std::unique_ptr<const Program> program_;
};

}  // namespace AppleScript
