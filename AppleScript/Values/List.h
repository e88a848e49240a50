#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <vector>

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

}  // namespace AppleScript
