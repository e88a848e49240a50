#include "AppleScript/Operators/Concatenation.h"

#include <string>
#include <utility>
#include <vector>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Dereference.h"

namespace AppleScript {

namespace {

/// All fields of `left`, and those of `right` that `left` does not have.
Record merged(const Record& left, const Record& right) {
  std::vector<std::string> labels;
  std::vector<Value> values;
  for (const Record* record : {&left, &right}) {
    for (std::size_t i = 0; i < record->size(); ++i) {
      if (record == &left || !left.find(record->label(i))) {
        labels.emplace_back(record->label(i));
        values.push_back(record->value(i));
      }
    }
  }
  return {std::make_shared<const std::vector<std::string>>(std::move(labels)), std::move(values)};
}

List joined(const List& left, const List& right) {
  std::vector<Value> items;
  items.reserve(left.size() + right.size());
  items.insert(items.end(), left.items().begin(), left.items().end());
  items.insert(items.end(), right.items().begin(), right.items().end());
  return List(std::move(items));
}

}  // namespace

Value concatenated(const Value& left, const Value& right, std::string_view delimiter) {
  const Value& first = dereferenced(left);
  const Value& second = dereferenced(right);
  if (const auto* text = first.getIf<Text>())
    return text->appending(toText(second, delimiter).view());
  if (first.is<Record>() && second.is<Record>())
    return merged(*first.getIf<Record>(), *second.getIf<Record>());
  return joined(toList(first), toList(second));
}

}  // namespace AppleScript
