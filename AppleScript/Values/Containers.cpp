#include "AppleScript/Values/Containers.h"

#include <algorithm>
#include <iterator>

namespace AppleScript {

namespace {

bool holdsValues(const Value& value) {
  return value.is<List>() || value.is<Record>() || value.is<ItemReference>();
}

void moveContainers(std::vector<Value>& from, std::vector<Value>& to) {
  std::copy_if(std::move_iterator(from.begin()), std::move_iterator(from.end()), std::back_inserter(to), holdsValues);
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

}  // namespace AppleScript
