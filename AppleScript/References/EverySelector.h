#pragma once

#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

/// `every window`, `windows`.
class EverySelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& /*run*/, const Elements& elements) const override { return elements.all(); }
  [[nodiscard]] bool yieldsMany() const override { return true; }
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] bool selectsAll() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "every " + std::string(elementClass.name);
  }
};

}  // namespace AppleScript
