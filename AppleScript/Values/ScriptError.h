#pragma once

#include <cstddef>
#include <expected>
#include <string>

namespace AppleScript {

/// A stretch of a script's source, counted in Unicode characters from its start.
struct SourceRange {
  std::size_t start = 0;
  std::size_t length = 0;

  bool operator==(const SourceRange&) const = default;
};

/// The numbers that users of the language know errors by.
enum class ErrorNumber : int {
  userCanceled = -128,
  notRunning = -600,
  divideByZero = -2701,
  cantCoerce = -1700,
  missingParameter = -1701,
  notUnderstood = -1708,
  timedOut = -1712,
  accessNotAllowed = -1723,
  noSuchObject = -1728,
  badIndex = -1719,
  cantSet = -10006,
  genericError = -2700,
  stackOverflow = -2706,
  numberTooLarge = -2702,
  syntaxError = -2741,
  unexpectedToken = -2740,
  undefinedVariable = -2753,
};

/// Why a script could not be compiled or run.
struct ScriptError {
  ErrorNumber number = ErrorNumber::genericError;
  std::string message;
  /// Where in the source; empty at the start of the text where no place is to blame.
  SourceRange range = {};
  /// The application that was asked when it happened; empty where none was involved.
  std::string applicationName = {};
};

template <typename T>
using Result = std::expected<T, ScriptError>;

}  // namespace AppleScript
