#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `items 2 thru 4`, `characters 1 thru -1`.
class RangeSelector : public ElementSelector {
 public:
  RangeSelector(ExpressionPointer first, ExpressionPointer last);

  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool yieldsMany() const override { return true; }
  [[nodiscard]] std::string describe(Run& run, const ClassDescription& elementClass) const override;

 private:
  ExpressionPointer first_;
  ExpressionPointer last_;
};

}  // namespace AppleScript
