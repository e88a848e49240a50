#include "AppleScript/Values/DeepCopy.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

namespace {

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

Value deepCopy(const Value& value) {
  return Copier().copy(value);
}

}  // namespace AppleScript
