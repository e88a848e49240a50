#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Platform {

/// Why a script failed: the error-information dictionary of executeAndReturnError:.
struct ScriptErrorInformation {
  /// The language's own number: -2741 for a syntax error, -1728 for an object that doesn't exist.
  int number = 0;
  /// What went wrong, in a sentence.
  std::string message;
  /// The offset of the faulty part of the source, in characters.
  std::size_t rangeStart = 0;
  /// The length of that part, in characters.
  std::size_t rangeLength = 0;
  /// The application that the script talked to; empty if none is involved.
  std::string applicationName = {};

  /// The dictionary as text: a line for each key with its value, in braces.
  [[nodiscard]] std::string description() const;
};

/// The outcome of a script: an error if it failed, otherwise perhaps a result.
struct ScriptOutcome {
  /// The value of a script (NSAppleEventDescriptor).
  struct Result {
    /// The value as text; `nullopt` if it cannot be coerced to text.
    std::optional<std::string> stringValue;
  };

  /// Why the script failed; `nullopt` if it succeeded.
  std::optional<ScriptErrorInformation> error = {};
  /// The value of the last statement; `nullopt` if it has none.
  std::optional<Result> result = {};
};

/// The system's AppleScript interpreter (NSAppleScript).
class ScriptEngine {
 public:
  virtual ~ScriptEngine() = default;

  /// Runs a script on the calling thread, and returns when it and the applications that it talks to are done. A source
  /// that doesn't compile yields an outcome with an error; a source that is not text yields `nullopt`.
  [[nodiscard]] virtual std::optional<ScriptOutcome> run(std::string_view source) = 0;
};

}  // namespace Platform
