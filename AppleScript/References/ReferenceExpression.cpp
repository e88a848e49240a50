#include "AppleScript/References/ReferenceExpression.h"

#include <utility>

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

ReferenceExpression::ReferenceExpression(ExpressionPointer base, std::vector<ReferenceFormPointer> forms,
                                         SourceRange range)
    : Expression(range), base_(std::move(base)), forms_(std::move(forms)) {}

Application* ReferenceExpression::addressedApplication() const {
  return base_ == nullptr ? nullptr : base_->addressedApplication();
}

Selection ReferenceExpression::follow(Run& run, std::size_t count) const {
  Selection selection = base_ == nullptr ? Selection{run.target()} : base_->select(run);
  const Value origin = selection.value;
  for (std::size_t i = 0; i < count; ++i) {
    if (selection.many && forms_[i]->distributes()) {
      selection.value = findInEach(run, {i, origin}, *selection.value.getIf<List>());
    } else {
      selection.value = findIn(run, {i, origin}, selection.value);
      selection.many = forms_[i]->yieldsMany() && selection.value.is<List>();
    }
  }
  return selection;
}

Value ReferenceExpression::findInEach(Run& run, Place place, const List& containers) const {
  std::vector<Value> found;
  found.reserve(containers.size());
  for (const Value& container : containers.items()) {
    const auto* inner = container.getIf<List>();
    found.push_back(inner != nullptr ? findInEach(run, place, *inner) : findIn(run, place, container));
  }
  return List(std::move(found));
}

Value ReferenceExpression::findIn(Run& run, Place place, const Value& container) const {
  const ReferenceForm& form = *forms_[place.form];
  const Value& within = form.looksAtReferences() ? container : dereferenced(container);
  Found found = form.find(run, within);
  if (!found)
    failToFind(run, place, std::move(found.error()), within);
  return *std::move(found);
}

void ReferenceExpression::failToFind(Run& run, Place place, std::string what, const Value& container) const {
  for (std::size_t i = place.form; i > 0; --i)
    what += " of " + forms_[i - 1]->describe(run);
  ScriptError error{.number = ErrorNumber::noSuchObject,
                    .message = "Can’t get " + what + describeOrigin(place.origin) + "."};
  const auto* object = container.getIf<ObjectReference>();
  if (object != nullptr && object->application != nullptr)
    error.applicationName = object->application->name();
  throw Failure{std::move(error)};
}

std::string ReferenceExpression::describeOrigin(const Value& origin) const {
  if (base_ != nullptr)
    return " of " + shortSourceForm(origin);
  const auto* object = origin.getIf<ObjectReference>();
  const bool isObject = object != nullptr && object->object != nullptr;
  return isObject ? " of " + shortSourceForm(ObjectReference{object->object}) : "";
}

void ReferenceExpression::store(Run& run, Value value) const {
  const std::size_t last = forms_.size() - 1;
  const Value container = follow(run, last).value;
  const Value& within = forms_[last]->looksAtReferences() ? container : dereferenced(container);
  forms_[last]->assign(run, within, std::move(value));
}

}  // namespace AppleScript
