#include "AppleScript/References/Elements.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

bool isCharacters(const ClassDescription& wanted) {
  return &wanted == &BuiltInClasses::character || &wanted == &BuiltInClasses::text || &wanted == &BuiltInClasses::item;
}

bool isPartOfText(const ClassDescription& wanted) {
  return &wanted == &BuiltInClasses::word || &wanted == &BuiltInClasses::paragraph ||
         &wanted == &BuiltInClasses::textItem;
}

List itemsOfClass(const List& list, const ClassDescription& wanted) {
  std::vector<Value> items;
  std::ranges::copy_if(list.items(), std::back_inserter(items),
                       [&wanted](const Value& item) { return isOfClass(item, wanted); });
  return List(std::move(items));
}

}  // namespace

Elements::Elements(Source source, const ClassDescription& elementClass)
    : source_(std::move(source)), class_(&elementClass) {}

Elements::Elements(List list, const ClassDescription& elementClass) : Elements(Source(std::move(list)), elementClass) {
  ownsList_ = true;
}

std::optional<Elements> Elements::in(Run& run, const Value& container, const ClassDescription& elementClass) {
  auto source = sourceIn(run, container, elementClass);
  return source ? std::optional(Elements(*std::move(source), elementClass)) : std::nullopt;
}

std::optional<Elements::Source> Elements::sourceIn(Run& run, const Value& container, const ClassDescription& wanted) {
  if (const auto* object = container.getIf<ObjectReference>())
    return sourceInObject(run, *object, wanted);
  if (const auto* list = container.getIf<List>())
    return &wanted == &BuiltInClasses::item ? *list : itemsOfClass(*list, wanted);
  const auto* text = container.getIf<Text>();
  if (text != nullptr && isCharacters(wanted))
    return *text;
  if (text != nullptr && isPartOfText(wanted))
    return run.textParts().of(*text, wanted);
  return std::nullopt;
}

std::optional<Elements::Source> Elements::sourceInObject(Run& run, const ObjectReference& container,
                                                         const ClassDescription& wanted) {
  const ObjectReference object{container.object == nullptr ? run.root(*container.application) : container.object,
                               container.application};
  for (const ElementsDescription& elements : object.object->classDescription().elements)
    if (elements.elementClass == &wanted || sameName(elements.elementClass->name, wanted.name))
      return OfObject{object, &elements};
  return std::nullopt;
}

std::size_t Elements::size() const {
  if (const auto* list = std::get_if<List>(&source_))
    return list->size();
  if (const auto* text = std::get_if<Text>(&source_))
    return text->characterCount();
  const OfObject& elements = std::get<OfObject>(source_);
  return elements.description->count(*elements.container.object);
}

Value Elements::at(std::size_t index) const {
  if (const auto* list = std::get_if<List>(&source_))
    return list->at(index);
  if (const auto* text = std::get_if<Text>(&source_))
    return text->characters(index, 1);
  const auto& [container, description] = std::get<OfObject>(source_);
  const Object& element = description->at(*container.object, index);
  return ObjectReference{ObjectPointer(container.object, &element), container.application};
}

Value Elements::all() const {
  return ownsList_ ? Value(std::get<List>(source_)) : range(0, size());
}

Value Elements::range(std::size_t first, std::size_t count) const {
  const auto* text = std::get_if<Text>(&source_);
  if (text != nullptr && class_ == &BuiltInClasses::text)
    return text->characters(first, count);
  std::vector<Value> values;
  values.reserve(count);
  for (std::size_t i = first; i < first + count; ++i)
    values.push_back(at(i));
  return List(std::move(values));
}

}  // namespace AppleScript
