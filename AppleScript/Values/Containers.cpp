#include "AppleScript/Values/Containers.h"

#include <utility>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/SharedContents.h"

namespace AppleScript {

namespace {

/// Takes the fields from the record's object, if that has not been done.
RecordFields& read(RecordFields& fields) {
  if (fields.object == nullptr)
    return fields;
  auto labels = std::make_shared<std::vector<std::string>>();
  for (const PropertyDescription& property : fields.object->classDescription().properties) {
    if (Result<Value> value = property.get(*fields.object)) {
      labels->emplace_back(property.name);
      fields.values.push_back(*std::move(value));
    }
  }
  fields.labels = std::move(labels);
  fields.object = nullptr;
  return fields;
}

std::optional<Value> propertyOf(const Object& object, std::string_view name) {
  for (const PropertyDescription& property : object.classDescription().properties) {
    if (sameName(property.name, name)) {
      Result<Value> value = property.get(object);
      return value ? std::optional(*std::move(value)) : std::nullopt;
    }
  }
  return std::nullopt;
}

std::optional<std::size_t> indexOf(const RecordFields& fields, std::string_view label) {
  for (std::size_t i = 0; i < fields.values.size(); ++i)
    if (sameName((*fields.labels)[i], label))
      return i;
  return std::nullopt;
}

}  // namespace

List::List() : List(std::vector<Value>()) {}

List::List(std::vector<Value> items) : items_(std::make_shared<ListItems>(std::move(items))) {}

List::List(std::initializer_list<Value> items) : List(std::vector<Value>(items)) {}

std::size_t List::size() const {
  return items_->values.size();
}

const Value& List::at(std::size_t index) const {
  return items_->values[index];
}

std::span<const Value> List::items() const {
  return items_->values;
}

void List::set(std::size_t index, Value value) {
  items_->values[index] = std::move(value);
}

void List::append(Value value) {
  items_->values.push_back(std::move(value));
}

void List::prepend(Value value) {
  items_->values.insert(items_->values.begin(), std::move(value));
}

Record::Record(RecordLabels labels, std::vector<Value> values)
    : fields_(std::make_shared<RecordFields>(std::move(labels), std::move(values))) {}

Record::Record(ObjectPointer object) : fields_(std::make_shared<RecordFields>(std::move(object))) {}

std::size_t Record::size() const {
  return read(*fields_).values.size();
}

std::string_view Record::label(std::size_t index) const {
  return (*read(*fields_).labels)[index];
}

const Value& Record::value(std::size_t index) const {
  return read(*fields_).values[index];
}

const RecordLabels& Record::labels() const {
  return read(*fields_).labels;
}

std::optional<Value> Record::find(std::string_view label) const {
  if (fields_->object != nullptr)
    return propertyOf(*fields_->object, label);
  const auto index = indexOf(*fields_, label);
  return index ? std::optional(fields_->values[*index]) : std::nullopt;
}

bool Record::set(std::string_view label, Value value) {
  RecordFields& fields = read(*fields_);
  const auto index = indexOf(fields, label);
  if (index)
    fields.values[*index] = std::move(value);
  return index.has_value();
}

}  // namespace AppleScript
