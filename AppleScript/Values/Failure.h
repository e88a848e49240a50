#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The limit of nesting: of expressions and blocks in a source (beyond it is a syntax error), and of lists and records
/// that are compared, coerced, copied or printed (beyond it is -2706).
inline constexpr std::size_t maximumNesting = 256;

/// A script error as an exception, thrown to the next `try` block or to the public interface. It is the only exception
/// of this module and never leaves it: the public interface yields a `Result`.
struct Failure {
  ScriptError error;
};

[[noreturn]] void fail(ErrorNumber number, std::string message, SourceRange range = {});

/// -1700: "Can’t make … into type …."
[[noreturn]] void failToCoerce(const Value& value, std::string_view typeName);
/// -1728: "Can’t get ….", `what` in source form.
[[noreturn]] void failToGet(std::string_view what);
/// -2706, for values that nest deeper than `maximumNesting`.
[[noreturn]] void failOfDepth();

/// The value of `result`. Throws its error.
template <typename T>
T orThrow(Result<T> result) {
  if (!result)
    throw Failure{std::move(result.error())};
  return *std::move(result);
}

/// Counts the levels of a recursion over a value. Throws -2706 beyond `maximumNesting`.
class Descent {
 public:
  explicit Descent(std::size_t& depth);
  ~Descent() { --depth_; }
  Descent(const Descent&) = delete;
  Descent& operator=(const Descent&) = delete;

 private:
  std::size_t& depth_;
};

}  // namespace AppleScript
