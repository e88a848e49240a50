#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// What the interpreter says of a script that failed: the error-information dictionary of executeAndReturnError:.
struct ScriptErrorInformation {
  int number = 0;
  std::string message;
  /// The part of the source to blame, in characters.
  std::size_t rangeStart = 0;
  std::size_t rangeLength = 0;
  /// The application that was asked; empty where none was.
  std::string applicationName = {};

  /// The dictionary in print: its keys and values, one a line, in braces.
  [[nodiscard]] std::string description() const;
};

/// What a script has come to. A failed one has an error; one that succeeds may have a result or none.
struct ScriptOutcome {
  /// A result descriptor; `stringValue` is its text coercion, absent in a value that has none.
  struct Result {
    std::optional<std::string> stringValue;
  };

  std::optional<ScriptErrorInformation> error = {};
  std::optional<Result> result = {};
};

/// The system's AppleScript interpreter (NSAppleScript).
class ScriptEngine {
 public:
  virtual ~ScriptEngine() = default;

  /// Runs a script to its end on the calling thread, the time that the applications it talks to take included. None
  /// where no script can be made of the source (it is not text); a source that can't be compiled is an outcome with an
  /// error.
  [[nodiscard]] virtual std::optional<ScriptOutcome> run(std::string_view source) = 0;
};

}  // namespace Platform
