#pragma once

#include <cstddef>
#include <expected>
#include <string>

namespace AppleScript {

/// A range of a script's source, in Unicode characters.
struct SourceRange {
  std::size_t start = 0;
  std::size_t length = 0;

  bool operator==(const SourceRange&) const = default;
};

/// The error numbers of the language.
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
  /// Where in the source; empty if no place is to blame.
  SourceRange range = {};
  /// The application that was asked; empty if none was.
  std::string applicationName = {};
};

template <typename T>
using Result = std::expected<T, ScriptError>;

}  // namespace AppleScript
