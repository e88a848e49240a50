#pragma once

#include <cstddef>
#include <memory>
#include <variant>
#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Lets go of `values`, however deep they nest, without recursion.
void dispose(std::vector<Value>& values);

/// What stands behind the copies of a list.
struct ListItems {
  explicit ListItems(std::vector<Value> items) : values(std::move(items)) {}
  ~ListItems() { dispose(values); }
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  std::vector<Value> values;
  /// Whether a cycle breaker knows of it already.
  bool mayHoldItself = false;
};

/// What stands behind the copies of a record: the fields, or the object to take them from.
struct RecordFields {
  RecordFields(RecordLabels names, std::vector<Value> fields) : labels(std::move(names)), values(std::move(fields)) {}
  explicit RecordFields(ObjectPointer origin) : object(std::move(origin)) {}
  ~RecordFields() { dispose(values); }
  RecordFields(const RecordFields&) = delete;
  RecordFields& operator=(const RecordFields&) = delete;

  ObjectPointer object;
  RecordLabels labels;
  std::vector<Value> values;
  bool mayHoldItself = false;
};

/// Frees what a script made to hold itself (`set end of l to l`), which sharing alone never would. Told of every list
/// or record that was changed to hold another one, it empties those that are left when the run is over.
class CycleBreaker {
 public:
  CycleBreaker() = default;
  CycleBreaker(const CycleBreaker&) = delete;
  CycleBreaker& operator=(const CycleBreaker&) = delete;
  ~CycleBreaker();

  void noteStored(const List& container, const Value& value);
  void noteStored(const Record& container, const Value& value);
  /// Whether anything might hold itself.
  [[nodiscard]] bool isNeeded() const { return !lists_.empty() || !records_.empty(); }

 private:
  std::vector<std::weak_ptr<ListItems>> lists_;
  std::vector<std::weak_ptr<RecordFields>> records_;
};

/// `value` with lists and records of its own, at every depth; what was shared among them is shared in the copy too.
/// Throws -2706 where they nest too deep or hold themselves.
[[nodiscard]] Value deepCopy(const Value& value);

}  // namespace AppleScript
