#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// A property of the language itself, which needs no application.
struct BuiltInProperty {
  std::string_view name;
  /// `nullopt` if `container` has no such property.
  std::optional<Value> (*get)(Run& run, const Value& container);
  /// Yields false if the property of `container` cannot be set; null if it never can.
  bool (*set)(Run& run, const Value& container, const Value& value) = nullptr;
  /// Whether it is a property of a reference to an item rather than of the item.
  bool looksAtReferences = false;
};

[[nodiscard]] std::span<const BuiltInProperty> builtInProperties();

/// The property of this name, or null.
[[nodiscard]] const BuiltInProperty* builtInProperty(std::string_view name);

}  // namespace AppleScript
