#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "AppleScript/Values/Dictionary.h"

namespace AppleScript {

class Value;
struct ListItems;

/// A list of values. Copies share their items, as variables that were set to the same list do in a script: what is
/// changed through one shows in all.
class List {
 public:
  /// A new empty list.
  List();
  explicit List(std::vector<Value> items);
  List(std::initializer_list<Value> items);

  [[nodiscard]] std::size_t size() const;
  /// The item at `index`, counted from 0 and below `size()`.
  [[nodiscard]] const Value& at(std::size_t index) const;
  /// All items; valid until the list changes.
  [[nodiscard]] std::span<const Value> items() const;

  /// Puts `value` in the place of the item at `index`, which must be below `size()`.
  void set(std::size_t index, Value value);
  void append(Value value);
  void prepend(Value value);

  /// Whether both are the same list, not merely equal ones.
  [[nodiscard]] bool isSameAs(const List& other) const { return items_ == other.items_; }
  /// Equal for copies that share their items, and for no others that live at the same time.
  [[nodiscard]] const void* identity() const { return items_.get(); }

 private:
  friend class CycleBreaker;
  std::shared_ptr<ListItems> items_;
};

class Value;
struct RecordFields;

/// The labels of a record, in order; shared by all records that the same piece of script makes.
using RecordLabels = std::shared_ptr<const std::vector<std::string>>;

/// A record: labelled values. Labels are compared without regard to case. Copies share their fields, as variables that
/// were set to the same record do in a script.
class Record {
 public:
  /// A new record of these fields; there must be as many values as labels.
  Record(RecordLabels labels, std::vector<Value> values);
  /// All properties of an application's object. A property is asked for when it is first needed; one that fails is left
  /// out.
  explicit Record(ObjectPointer object);

  [[nodiscard]] std::size_t size() const;
  /// The label and the value of the field at `index`, counted from 0 and below `size()`.
  [[nodiscard]] std::string_view label(std::size_t index) const;
  [[nodiscard]] const Value& value(std::size_t index) const;

  [[nodiscard]] const RecordLabels& labels() const;

  /// The value of the field `label`; none where there is no such field.
  [[nodiscard]] std::optional<Value> find(std::string_view label) const;
  /// Puts `value` into the field `label`; false, and nothing changed, where there is no such field.
  bool set(std::string_view label, Value value);

  [[nodiscard]] bool isSameAs(const Record& other) const { return fields_ == other.fields_; }
  /// Equal for copies that share their fields, and for no others that live at the same time.
  [[nodiscard]] const void* identity() const { return fields_.get(); }

 private:
  friend class CycleBreaker;
  std::shared_ptr<RecordFields> fields_;
};

}  // namespace AppleScript
