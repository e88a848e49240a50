#include "AppleScript/References/PropertyForm.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "AppleScript/Text/Names.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Failure.h"

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

}  // namespace AppleScript
