#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "AppleScript/Values/ScriptError.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What a script gave to a command.
class Arguments {
 public:
  Arguments() = default;
  explicit Arguments(Value direct) : direct_(std::move(direct)) {}

  [[nodiscard]] bool hasDirect() const { return direct_.has_value(); }
  /// The value directly behind the command's name; `missing value` where there is none.
  [[nodiscard]] const Value& direct() const;
  /// The value behind `label`; `missing value` where there is none.
  [[nodiscard]] const Value& labelled(std::string_view label) const;

  /// The same values coerced to text. Fail with -1701 where there is no such value, with -1700 where it has no text
  /// form.
  [[nodiscard]] Result<std::string> directText() const;
  [[nodiscard]] Result<std::string> labelledText(std::string_view label) const;

  void setLabelled(std::string_view label, Value value) { labelled_.emplace_back(label, std::move(value)); }

 private:
  std::optional<Value> direct_;
  std::vector<std::pair<std::string, Value>> labelled_;
};

}  // namespace AppleScript
