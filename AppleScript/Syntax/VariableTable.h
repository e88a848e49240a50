#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace AppleScript {

/// Gives each variable of a script its place.
class VariableTable {
 public:
  /// The place of the variable `name`, whose case does not matter.
  [[nodiscard]] std::size_t slot(std::string_view name);
  [[nodiscard]] std::size_t size() const { return slots_.size(); }

 private:
  std::unordered_map<std::string, std::size_t> slots_;
};

}  // namespace AppleScript
