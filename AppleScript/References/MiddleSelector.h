#pragma once

#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `middle item`.
class MiddleSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "middle " + std::string(elementClass.name);
  }
};

}  // namespace AppleScript
