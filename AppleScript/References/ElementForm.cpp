#include "AppleScript/References/ElementForm.h"

#include <utility>
#include <vector>

#include "AppleScript/References/Selectors.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Coercions.h"

namespace AppleScript {

ElementForm::ElementForm(const ClassDescription& elementClass, ElementSelectorPointer selector)
    : class_(elementClass), selector_(std::move(selector)) {}

void ElementForm::becomeCount() {
  selector_ = std::make_unique<CountSelector>();
}

Found ElementForm::find(Run& run, const Value& container) const {
  const auto elements = Elements::in(run, container, class_);
  if (!elements)
    return std::unexpected(describe(run));
  return filter_ == nullptr ? selector_->select(run, *elements) : selector_->select(run, filtered(run, *elements));
}

Elements ElementForm::filtered(Run& run, const Elements& elements) const {
  std::vector<Value> passed;
  const std::size_t size = elements.size();
  for (std::size_t i = 0; i < size; ++i) {
    Value element = elements.at(i);
    const TargetScope scope(run, element);
    if (toBoolean(filter_->evaluate(run)))
      passed.push_back(std::move(element));
  }
  return {List(std::move(passed)), class_};
}

void ElementForm::assign(Run& run, const Value& container, Value value) const {
  const auto* list = container.getIf<List>();
  if (list == nullptr || &class_ != &BuiltInClasses::item || filter_ != nullptr)
    failToSet(describe(run), container, value);
  const auto elements = Elements::in(run, container, class_);
  const auto index = elements ? selector_->locate(run, *elements) : std::nullopt;
  if (!index)
    failToSet(describe(run), container, value);
  List changed = *list;
  run.cycles().noteStored(changed, value);
  changed.set(*index, std::move(value));
}

}  // namespace AppleScript
