#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/References/Selectors.h"
#include "AppleScript/Values/Dictionary.h"

namespace AppleScript {

/// Elements of a class, selected and perhaps filtered: `every process whose background only is false`.
class ElementForm : public ReferenceForm {
 public:
  ElementForm(const ClassDescription& elementClass, ElementSelectorPointer selector);

  /// Adds a filter; while it is evaluated, `it` is the element in question.
  void setFilter(ExpressionPointer filter) { filter_ = std::move(filter); }
  [[nodiscard]] bool invitesFilter() const { return filter_ == nullptr && selector_->invitesFilter(); }

  [[nodiscard]] bool selectsAll() const { return selector_->selectsAll(); }
  /// Changes `every window` into the number of windows.
  void becomeCount();

  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool yieldsMany() const override { return selector_->yieldsMany(); }
  [[nodiscard]] bool isAssignable() const override { return true; }
  void assign(Run& run, const Value& container, Value value) const override;
  [[nodiscard]] std::string describe(Run& run) const override { return selector_->describe(run, class_); }

 private:
  [[nodiscard]] Elements filtered(Run& run, const Elements& elements) const;

  const ClassDescription& class_;
  ElementSelectorPointer selector_;
  ExpressionPointer filter_;
};

}  // namespace AppleScript
