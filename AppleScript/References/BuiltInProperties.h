#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// A property that the language itself knows of, whatever the application.
struct BuiltInProperty {
  std::string_view name;
  /// None where `container` has no such property.
  std::optional<Value> (*get)(Run& run, const Value& container);
  /// False where it cannot be set; null where it never can.
  bool (*set)(Run& run, const Value& container, const Value& value) = nullptr;
  /// Whether it is asked of a reference to an item rather than of the item.
  bool looksAtReferences = false;
};

[[nodiscard]] std::span<const BuiltInProperty> builtInProperties();

/// The property of this name; null where there is none.
[[nodiscard]] const BuiltInProperty* builtInProperty(std::string_view name);

}  // namespace AppleScript
