#include "AppleScript/References/ReferenceForms.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

const PropertyDescription* describedProperty(const ClassDescription& description, std::string_view name) {
  const auto found =
      std::ranges::find_if(description.properties, [name](const auto& one) { return sameName(one.name, name); });
  return found == description.properties.end() ? nullptr : &*found;
}

/// The property as the application's dictionary describes it; none where it does not.
std::optional<Value> describedValue(Run& run, const ObjectReference& reference, std::string_view name) {
  Application* application = reference.application;
  const bool isApplication = reference.object == nullptr;
  const ClassDescription& description =
      isApplication ? *application->dictionary().application : reference.object->classDescription();
  const PropertyDescription* property = describedProperty(description, name);
  if (property == nullptr)
    return std::nullopt;
  Result<Value> value = property->get(isApplication ? *run.root(*application) : *reference.object);
  if (!value) {
    ScriptError error = std::move(value.error());
    error.applicationName = application == nullptr ? "" : application->name();
    throw Failure{std::move(error)};
  }
  const auto* object = value->getIf<ObjectReference>();
  return object == nullptr ? *std::move(value) : Value(ObjectReference{object->object, application});
}

}  // namespace

void failToSet(const std::string& what, const Value& container, const Value& value) {
  fail(ErrorNumber::cantSet,
       "Can’t set " + what + " of " + shortSourceForm(container) + " to " + shortSourceForm(value) + ".");
}

// Overriders keep the value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ReferenceForm::assign(Run& run, const Value& container, Value value) const {
  failToSet(describe(run), container, value);
}

PropertyForm::PropertyForm(std::string name) : name_(std::move(name)), builtIn_(builtInProperty(name_)) {}

bool PropertyForm::looksAtReferences() const {
  return builtIn_ != nullptr && builtIn_->looksAtReferences;
}

Found PropertyForm::find(Run& run, const Value& container) const {
  std::optional<Value> value;
  if (const auto* record = container.getIf<Record>())
    value = record->find(name_);
  else if (const auto* reference = container.getIf<ObjectReference>())
    value = describedValue(run, *reference, name_);
  if (!value && builtIn_ != nullptr)
    value = builtIn_->get(run, container);
  return value ? Found(*std::move(value)) : std::unexpected(name_);
}

void PropertyForm::assign(Run& run, const Value& container, Value value) const {
  if (const auto* record = container.getIf<Record>()) {
    Record changed = *record;
    run.cycles().noteStored(changed, value);
    if (!changed.set(name_, value))
      failToSet(name_, container, value);
    return;
  }
  if (builtIn_ == nullptr || builtIn_->set == nullptr || !builtIn_->set(run, container, value))
    failToSet(name_, container, value);
}

Found CountForm::find(Run& /*run*/, const Value& container) const {
  if (const auto* list = container.getIf<List>())
    return list->size();
  if (const auto* text = container.getIf<Text>())
    return text->characterCount();
  if (const auto* record = container.getIf<Record>())
    return record->size();
  fail(ErrorNumber::notUnderstood, shortSourceForm(container) + " doesn’t understand the “count” message.");
}

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
