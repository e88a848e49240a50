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

/// A list of values. Copies share their items, like the variables of a script that are set to the same list: a change
/// to one is a change to all.
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

  /// Replaces the item at `index`, which must be below `size()`.
  void set(std::size_t index, Value value);
  void append(Value value);
  void prepend(Value value);

  /// Whether both share their items; equal lists need not.
  [[nodiscard]] bool isSameAs(const List& other) const { return items_ == other.items_; }
  /// Equal for lists that share their items, different for others that exist at the same time.
  [[nodiscard]] const void* identity() const { return items_.get(); }

 private:
  friend class CycleBreaker;
  std::shared_ptr<ListItems> items_;
};

class Value;
struct RecordFields;

/// The labels of a record, in order. All records that the same expression makes share them.
using RecordLabels = std::shared_ptr<const std::vector<std::string>>;

/// A record: labelled values. The case of labels does not matter. Copies share their fields, like those of a list.
class Record {
 public:
  /// A new record. There must be as many values as labels.
  Record(RecordLabels labels, std::vector<Value> values);
  /// The properties of an application's object. They are fetched when they are first needed; a property that fails is
  /// left out.
  explicit Record(ObjectPointer object);

  [[nodiscard]] std::size_t size() const;
  /// The label and the value of the field at `index`, counted from 0 and below `size()`.
  [[nodiscard]] std::string_view label(std::size_t index) const;
  [[nodiscard]] const Value& value(std::size_t index) const;

  [[nodiscard]] const RecordLabels& labels() const;

  /// The value of the field `label`, or `nullopt` if there is no such field.
  [[nodiscard]] std::optional<Value> find(std::string_view label) const;
  /// Sets the field `label`. Yields false and changes nothing if there is no such field.
  bool set(std::string_view label, Value value);

  [[nodiscard]] bool isSameAs(const Record& other) const { return fields_ == other.fields_; }
  /// Equal for copies that share their fields, and for no others that live at the same time.
  [[nodiscard]] const void* identity() const { return fields_.get(); }

 private:
  friend class CycleBreaker;
  std::shared_ptr<RecordFields> fields_;
};

}  // namespace AppleScript
