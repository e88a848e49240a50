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
  /// Compiles `source`, which must be UTF-8, with the dictionaries of the applications that its `tell` blocks name. No
  /// running application is asked. `applications` must outlive the script. Fails with a syntax error (-2740 or -2741).
  static Result<Script> compile(std::string_view source, ApplicationDirectory& applications);

  Script(const Script&) = delete;
  Script& operator=(const Script&) = delete;
  Script(Script&&) noexcept;
  Script& operator=(Script&&) noexcept;
  ~Script();

  /// Runs the script on the calling thread. Yields the value of the last statement, or `nullopt` if it has none. Fails
  /// with the first error that the script does not catch. Runs share no state.
  [[nodiscard]] Result<std::optional<Value>> run() const;

 private:
  struct Program;
  explicit Script(std::unique_ptr<const Program> program);
  std::unique_ptr<const Program> program_;
};

}  // namespace AppleScript
