#pragma once

#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `window id 7`: the element whose property `id` is that.
class IDSelector : public ElementSelector {
 public:
  explicit IDSelector(ExpressionPointer id) : id_(std::move(id)) {}

  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] std::string describe(Run& run, const ClassDescription& elementClass) const override;

 private:
  ExpressionPointer id_;
};

}  // namespace AppleScript
