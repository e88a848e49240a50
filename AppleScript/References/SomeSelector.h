#pragma once

#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `some item`: any one of them.
class SomeSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "some " + std::string(elementClass.name);
  }
};

}  // namespace AppleScript
