#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// How deep anything may nest: expressions and blocks in a source (deeper is a syntax error), and the lists and records
/// that are compared, coerced, copied or written out as a whole (deeper is -2706).
inline constexpr std::size_t maximumNesting = 256;

/// A script error on its way from where it happens to the `try` block, or to the operation of the public interface,
/// that answers for it. It is the only exception of this module and never leaves it: outside, errors are `Result`s.
struct Failure {
  ScriptError error;
};

[[noreturn]] void fail(ErrorNumber number, std::string message, SourceRange range = {});

/// -1700: "Can’t make … into type …."
[[noreturn]] void failToCoerce(const Value& value, std::string_view typeName);
/// -1728: "Can’t get ….", `what` in source form.
[[noreturn]] void failToGet(std::string_view what);
/// -2706, where values nest deeper than `maximumNesting`.
[[noreturn]] void failOfDepth();

/// The value of `result`, or its error thrown.
template <typename T>
T orThrow(Result<T> result) {
  if (!result)
    throw Failure{std::move(result.error())};
  return *std::move(result);
}

/// How deep the work on a value has gone; lives for the time of one level.
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
