#pragma once

#include "AppleScript/References/ReferenceForm.h"

namespace AppleScript {

/// `end of l`, `beginning of l`: a place to put something, never something to get.
class InsertionForm : public ReferenceForm {
 public:
  enum class Place { beginning, end };

  explicit InsertionForm(Place place) : place_(place) {}

  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool isAssignable() const override { return true; }
  void assign(Run& run, const Value& container, Value value) const override;
  [[nodiscard]] std::string describe(Run& run) const override;

 private:
  Place place_;
};

}  // namespace AppleScript
