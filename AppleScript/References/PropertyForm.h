#pragma once

#include <string>

#include "AppleScript/References/BuiltInProperties.h"
#include "AppleScript/References/ReferenceForm.h"

namespace AppleScript {

/// A property of an object, a field of a record, or one of the properties that the language gives to its own values.
class PropertyForm : public ReferenceForm {
 public:
  explicit PropertyForm(std::string name);

  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool looksAtReferences() const override;
  [[nodiscard]] bool isAssignable() const override { return true; }
  void assign(Run& run, const Value& container, Value value) const override;
  [[nodiscard]] std::string describe(Run& /*run*/) const override { return name_; }

 private:
  std::string name_;
  /// Null where the language has no property of this name.
  const BuiltInProperty* builtIn_;
};

}  // namespace AppleScript
