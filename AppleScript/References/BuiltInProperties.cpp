#include "AppleScript/References/BuiltInProperties.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "AppleScript/Text/CaseFolding.h"
#include "AppleScript/Text/UTF8.h"
#include "AppleScript/Values/BuiltIns.h"
#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

namespace {

std::optional<Value> getClass(Run& /*run*/, const Value& container) {
  return ClassName{&classOf(container)};
}

std::optional<Value> getContents(Run& /*run*/, const Value& container) {
  return dereferenced(container);
}

bool setContents(Run& run, const Value& container, const Value& value) {
  const auto* reference = container.getIf<ItemReference>();
  if (reference == nullptr || reference->index >= reference->list.size())
    return false;
  List list = reference->list;
  run.cycles().noteStored(list, value);
  list.set(reference->index, value);
  return true;
}

std::optional<Value> getLength(Run& /*run*/, const Value& container) {
  if (const auto* text = container.getIf<Text>())
    return text->characterCount();
  if (const auto* record = container.getIf<Record>())
    return record->size();
  const auto* list = container.getIf<List>();
  return list == nullptr ? std::nullopt : std::optional<Value>(list->size());
}

std::optional<Value> getReverse(Run& /*run*/, const Value& container) {
  const auto* list = container.getIf<List>();
  if (list == nullptr)
    return std::nullopt;
  return List(std::vector<Value>(list->items().rbegin(), list->items().rend()));
}

std::optional<Value> getRest(Run& /*run*/, const Value& container) {
  const auto* list = container.getIf<List>();
  if (list == nullptr || list->size() == 0)
    return std::nullopt;
  return List(std::vector<Value>(list->items().begin() + 1, list->items().end()));
}

std::optional<Value> getName(Run& /*run*/, const Value& container) {
  const auto* reference = container.getIf<ObjectReference>();
  const bool isApplication = reference != nullptr && reference->object == nullptr;
  return isApplication ? std::optional<Value>(reference->application->name()) : std::nullopt;
}

std::optional<Value> getRunning(Run& run, const Value& container) {
  const auto* reference = container.getIf<ObjectReference>();
  if (reference == nullptr || reference->object != nullptr)
    return std::nullopt;
  try {
    return run.root(*reference->application) != nullptr;
  } catch (const Failure& failure) {
    if (failure.error.number != ErrorNumber::notRunning)
      throw;
    return false;
  }
}

std::optional<Value> getProperties(Run& run, const Value& container) {
  if (container.is<Record>())
    return container;
  const auto* reference = container.getIf<ObjectReference>();
  if (reference == nullptr)
    return std::nullopt;
  return Record(reference->object == nullptr ? run.root(*reference->application) : reference->object);
}

std::optional<Value> getPath(Run& /*run*/, const Value& container) {
  if (container.is<Text>())
    return container;
  const auto* file = container.getIf<File>();
  return file == nullptr ? std::nullopt : std::optional<Value>(file->path());
}

/// The code points of a text.
std::optional<Value> getID(Run& /*run*/, const Value& container) {
  const auto* text = container.getIf<Text>();
  if (text == nullptr)
    return std::nullopt;
  std::vector<Value> codes;
  for (std::size_t offset = 0; offset < text->size();)
    codes.emplace_back(static_cast<std::int64_t>(UTF8::decode(text->view(), offset)));
  return codes.size() == 1 ? codes.front() : Value(List(std::move(codes)));
}

std::optional<Value> getTextItemDelimiters(Run& run, const Value& /*container*/) {
  return run.textItemDelimiters();
}

bool setTextItemDelimiters(Run& run, const Value& /*container*/, const Value& value) {
  run.setTextItemDelimiters(value);
  return true;
}

constexpr auto allProperties = std::to_array<BuiltInProperty>({
    {"class", getClass},
    {"contents", getContents, setContents, true},
    {"length", getLength},
    {"reverse", getReverse},
    {"rest", getRest},
    {"name", getName},
    {"running", getRunning},
    {"properties", getProperties},
    {"id", getID},
    {"POSIX path", getPath},
    {"text item delimiters", getTextItemDelimiters, setTextItemDelimiters},
});

}  // namespace

std::span<const BuiltInProperty> builtInProperties() {
  return allProperties;
}

const BuiltInProperty* builtInProperty(std::string_view name) {
  const auto found =
      std::ranges::find_if(allProperties, [name](const BuiltInProperty& one) { return sameName(one.name, name); });
  return found == allProperties.end() ? nullptr : &*found;
}

}  // namespace AppleScript
