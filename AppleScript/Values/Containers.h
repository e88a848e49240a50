#pragma once

#include <variant>
#include <vector>

#include "AppleScript/Values/Object.h"
#include "AppleScript/Values/Record.h"
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

}  // namespace AppleScript
