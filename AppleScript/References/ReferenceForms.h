#pragma once

#include <expected>
#include <memory>
#include <string>

#include "AppleScript/References/BuiltInProperties.h"
#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The value that a form found, or the script's words for what is missing: "window 3".
using Found = std::expected<Value, std::string>;

/// One link of a reference, the part before an `of`: a property, elements of a class, or a count.
class ReferenceForm {
 public:
  ReferenceForm() = default;
  virtual ~ReferenceForm() = default;
  ReferenceForm(const ReferenceForm&) = delete;
  ReferenceForm& operator=(const ReferenceForm&) = delete;

  /// Looks into `container`, which is not a reference to an item unless `looksAtReferences`.
  [[nodiscard]] virtual Found find(Run& run, const Value& container) const = 0;
  /// Whether the result is a list that stands for many objects.
  [[nodiscard]] virtual bool yieldsMany() const { return false; }
  /// Whether it applies to each of many objects rather than to their list.
  [[nodiscard]] virtual bool distributes() const { return true; }
  /// Whether it applies to a reference to an item (such as a loop's variable) rather than to the item.
  [[nodiscard]] virtual bool looksAtReferences() const { return false; }

  [[nodiscard]] virtual bool isAssignable() const { return false; }
  /// Stores `value`. Throws -10006 if that is impossible.
  virtual void assign(Run& run, const Value& container, Value value) const;

  /// The script's words for it, as far as they are known without evaluating anything.
  [[nodiscard]] virtual std::string describe(Run& run) const = 0;
};

using ReferenceFormPointer = std::unique_ptr<const ReferenceForm>;

/// -10006: "Can’t set … to …."
[[noreturn]] void failToSet(const std::string& what, const Value& container, const Value& value);

/// A property of an object, a field of a record, or a built-in property.
class PropertyForm : public ReferenceForm {
 public:
  explicit PropertyForm(std::string name);

  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool looksAtReferences() const override;
  [[nodiscard]] bool isAssignable() const override { return true; }
  void assign(Run& run, const Value& container, Value value) const override;
  [[nodiscard]] std::string describe(Run& /*run*/) const override { return name_; }

 private:
  std::string name_;
  /// Null if there is no built-in property of this name.
  const BuiltInProperty* builtIn_;
};

/// `count of x`, `number of x`: the number of items, characters or fields. Throws -1708 for other values.
class CountForm : public ReferenceForm {
 public:
  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool distributes() const override { return false; }
  [[nodiscard]] std::string describe(Run& /*run*/) const override { return "count"; }
};

/// `end of l`, `beginning of l`: a place to insert a value. There is nothing to get.
class InsertionForm : public ReferenceForm {
 public:
  enum class Place { beginning, end };

  explicit InsertionForm(Place place) : place_(place) {}

  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool isAssignable() const override { return true; }
  void assign(Run& run, const Value& container, Value value) const override;
  [[nodiscard]] std::string describe(Run& run) const override;

 private:
  Place place_;
};

}  // namespace AppleScript
