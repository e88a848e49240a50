#pragma once

#include <cstddef>
#include <memory>
#include <variant>
#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Destroys `values` without recursion, however deep they nest.
void dispose(std::vector<Value>& values);

/// The items that copies of a list share.
struct ListItems {
  explicit ListItems(std::vector<Value> items) : values(std::move(items)) {}
  ~ListItems() { dispose(values); }
  ListItems(const ListItems&) = delete;
  ListItems& operator=(const ListItems&) = delete;

  std::vector<Value> values;
  /// Whether a cycle breaker has noted it.
  bool mayHoldItself = false;
};

/// The fields that copies of a record share, or the object to fetch them from.
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

/// Frees lists and records that contain themselves (`set end of l to l`), which reference counting alone would leak. It
/// is told of each one into which another was stored, and empties those that are left after the run.
class CycleBreaker {
 public:
  CycleBreaker() = default;
  CycleBreaker(const CycleBreaker&) = delete;
  CycleBreaker& operator=(const CycleBreaker&) = delete;
  ~CycleBreaker();

  void noteStored(const List& container, const Value& value);
  void noteStored(const Record& container, const Value& value);
  /// Whether anything might contain itself.
  [[nodiscard]] bool isNeeded() const { return !lists_.empty() || !records_.empty(); }

 private:
  std::vector<std::weak_ptr<ListItems>> lists_;
  std::vector<std::weak_ptr<RecordFields>> records_;
};

/// A copy of `value` that shares no list or record with it, at any depth. What is shared within `value` is shared
/// within the copy. Throws -2706 if it nests too deep or contains itself.
[[nodiscard]] Value deepCopy(const Value& value);

}  // namespace AppleScript
