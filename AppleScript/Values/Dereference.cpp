#include "AppleScript/Values/Dereference.h"

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/Limits.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

const Value& itemOf(const ItemReference& reference) {
  if (reference.index >= reference.list.size())
    failToGet("item " + std::to_string(reference.index + 1) + " of " + shortSourceForm(reference.list));
  return reference.list.at(reference.index);
}

}  // namespace

const Value& dereferenced(const Value& value) {
  const Value* current = &value;
  for (std::size_t depth = 0; const auto* reference = current->getIf<ItemReference>(); ++depth) {
    if (depth == maximumNesting)
      failOfDepth();
    current = &itemOf(*reference);
  }
  return *current;
}

const Value& dereferenced(const ItemReference& reference) {
  return dereferenced(itemOf(reference));
}

}  // namespace AppleScript
