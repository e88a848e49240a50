#include "AppleScript/Values/SharedContents.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

bool holdsValues(const Value& value) {
  return value.is<List>() || value.is<Record>() || value.is<ItemReference>();
}

void moveContainers(std::vector<Value>& from, std::vector<Value>& to) {
  std::copy_if(std::move_iterator(from.begin()), std::move_iterator(from.end()), std::back_inserter(to), holdsValues);
}

template <typename Container>
void note(std::vector<std::weak_ptr<Container>>& noted, const std::shared_ptr<Container>& container,
          const Value& value) {
  if (!holdsValues(value) || std::exchange(container->mayHoldItself, true))
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

class Copier {
 public:
  Value copy(const Value& value);

 private:
  Value copyItems(const List& list);
  Value copyFields(const Record& record);

  std::size_t depth_ = 0;
  std::unordered_map<const void*, Value> copies_;
};

Value Copier::copy(const Value& value) {
  if (const auto* list = value.getIf<List>())
    return copyItems(*list);
  if (const auto* record = value.getIf<Record>())
    return copyFields(*record);
  if (const auto* reference = value.getIf<ItemReference>())
    return ItemReference{*copyItems(reference->list).getIf<List>(), reference->index};
  return value;
}

Value Copier::copyItems(const List& list) {
  if (const auto known = copies_.find(list.identity()); known != copies_.end())
    return known->second;
  const Descent descent(depth_);
  std::vector<Value> items;
  items.reserve(list.size());
  for (const Value& item : list.items())
    items.push_back(copy(item));
  return copies_[list.identity()] = List(std::move(items));
}

Value Copier::copyFields(const Record& record) {
  if (const auto known = copies_.find(record.identity()); known != copies_.end())
    return known->second;
  const Descent descent(depth_);
  std::vector<Value> values;
  for (std::size_t i = 0; i < record.size(); ++i)
    values.push_back(copy(record.value(i)));
  return copies_[record.identity()] = Record(record.labels(), std::move(values));
}

}  // namespace

void dispose(std::vector<Value>& values) {
  thread_local std::vector<Value>* pending = nullptr;
  if (std::none_of(values.begin(), values.end(), holdsValues))
    return;
  if (pending != nullptr) {
    moveContainers(values, *pending);
    return;
  }
  std::vector<Value> queue;
  pending = &queue;
  moveContainers(values, queue);
  while (!queue.empty()) {
    const Value last = std::move(queue.back());
    queue.pop_back();
  }
  pending = nullptr;
}

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

Value deepCopy(const Value& value) {
  return Copier().copy(value);
}

}  // namespace AppleScript
