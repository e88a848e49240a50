#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// What the interpreter says of a script that failed: the error-information dictionary of executeAndReturnError:.
struct ScriptErrorInformation {
  /// The language's own number: -2741 for a syntax error, -1728 for an object that isn't there.
  int number = 0;
  /// What went wrong, in a sentence.
  std::string message;
  /// Where the part of the source to blame begins, in characters.
  std::size_t rangeStart = 0;
  /// How long that part is, in characters.
  std::size_t rangeLength = 0;
  /// The application that was asked; empty where none was.
  std::string applicationName = {};

  /// The dictionary in print: its keys and values, one a line, in braces.
  [[nodiscard]] std::string description() const;
};

/// What a script has come to. A failed one has an error; one that succeeds may have a result or none.
struct ScriptOutcome {
  /// A result descriptor.
  struct Result {
    /// The value as text; none in one that cannot be coerced to text.
    std::optional<std::string> stringValue;
  };

  /// Why the script failed; none where it succeeded.
  std::optional<ScriptErrorInformation> error = {};
  /// The value of the last statement; none where that has no value.
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
