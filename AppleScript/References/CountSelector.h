#pragma once

#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `number of windows`: how many there are; none of them is looked at.
class CountSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& /*run*/, const Elements& elements) const override { return elements.size(); }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "every " + std::string(elementClass.name);
  }
};

}  // namespace AppleScript
