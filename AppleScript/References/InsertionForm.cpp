#include "AppleScript/References/InsertionForm.h"

#include <utility>

namespace AppleScript {

Found InsertionForm::find(Run& run, const Value& /*container*/) const {
  return std::unexpected(describe(run));
}

void InsertionForm::assign(Run& run, const Value& container, Value value) const {
  const auto* list = container.getIf<List>();
  if (list == nullptr)
    failToSet(describe(run), container, value);
  List changed = *list;
  run.cycles().noteStored(changed, value);
  if (place_ == Place::end)
    changed.append(std::move(value));
  else
    changed.prepend(std::move(value));
}

std::string InsertionForm::describe(Run& /*run*/) const {
  return place_ == Place::end ? "end" : "beginning";
}

}  // namespace AppleScript
