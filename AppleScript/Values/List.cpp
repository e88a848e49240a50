#include "AppleScript/Values/List.h"

#include <utility>

#include "AppleScript/Values/Containers.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

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

}  // namespace AppleScript
