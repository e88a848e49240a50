#include "AppleScript/Values/CycleBreaker.h"

#include <utility>

#include "AppleScript/Values/Containers.h"

namespace AppleScript {

namespace {

template <typename Container>
void note(std::vector<std::weak_ptr<Container>>& noted, const std::shared_ptr<Container>& container,
          const Value& value) {
  const bool holdsValues = value.is<List>() || value.is<Record>() || value.is<ItemReference>();
  if (!holdsValues || std::exchange(container->mayHoldItself, true))
    return;
  if (noted.size() == noted.capacity()) {
    std::erase_if(noted, [](const auto& one) { return one.expired(); });
    noted.reserve(2 * noted.size() + 8);
  }
  noted.push_back(container);
}

template <typename Container>
void empty(const std::vector<std::weak_ptr<Container>>& noted) {
  for (const auto& one : noted)
    if (const auto container = one.lock())
      const auto values = std::exchange(container->values, {});
}

}  // namespace

CycleBreaker::~CycleBreaker() {
  empty(lists_);
  empty(records_);
}

void CycleBreaker::noteStored(const List& container, const Value& value) {
  note(lists_, container.items_, value);
}

void CycleBreaker::noteStored(const Record& container, const Value& value) {
  note(records_, container.fields_, value);
}

}  // namespace AppleScript
