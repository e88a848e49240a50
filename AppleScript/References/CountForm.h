#pragma once

#include "AppleScript/References/ReferenceForm.h"

namespace AppleScript {

/// `count of x`, `number of x`: how many items, characters or fields a value has. Throws -1708 for what has none.
class CountForm : public ReferenceForm {
 public:
  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool distributes() const override { return false; }
  [[nodiscard]] std::string describe(Run& /*run*/) const override { return "count"; }
};

}  // namespace AppleScript
