#pragma once

#include <expected>
#include <memory>
#include <string>

#include "AppleScript/References/BuiltInProperties.h"
#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// What a reference form found in its container; where there is no such thing, how the script would call it: "window
/// 3".
using Found = std::expected<Value, std::string>;

/// One link of a reference: what stands before an `of`, be it a property, elements of a class, or a count.
class ReferenceForm {
 public:
  ReferenceForm() = default;
  virtual ~ReferenceForm() = default;
  ReferenceForm(const ReferenceForm&) = delete;
  ReferenceForm& operator=(const ReferenceForm&) = delete;

  /// Looks into `container`, which is no reference to an item itself.
  [[nodiscard]] virtual Found find(Run& run, const Value& container) const = 0;
  /// Whether what it finds is a list that stands for many objects.
  [[nodiscard]] virtual bool yieldsMany() const { return false; }
  /// Whether, asked of many objects, it is asked of each rather than of their list.
  [[nodiscard]] virtual bool distributes() const { return true; }
  /// Whether a reference to an item, as a loop's variable holds it, is looked at itself rather than the item.
  [[nodiscard]] virtual bool looksAtReferences() const { return false; }

  [[nodiscard]] virtual bool isAssignable() const { return false; }
  /// Puts `value` there. Throws -10006 where that cannot be.
  virtual void assign(Run& run, const Value& container, Value value) const;

  /// How the script calls it, as far as that is known without evaluating anything.
  [[nodiscard]] virtual std::string describe(Run& run) const = 0;
};

using ReferenceFormPointer = std::unique_ptr<const ReferenceForm>;

/// -10006: "Can’t set … to …."
[[noreturn]] void failToSet(const std::string& what, const Value& container, const Value& value);

/// A property of an object, a field of a record, or one of the properties that the language gives to its own values.
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
  /// Null where the language has no property of this name.
  const BuiltInProperty* builtIn_;
};

/// `count of x`, `number of x`: how many items, characters or fields a value has. Throws -1708 for what has none.
class CountForm : public ReferenceForm {
 public:
  [[nodiscard]] Found find(Run& run, const Value& container) const override;
  [[nodiscard]] bool distributes() const override { return false; }
  [[nodiscard]] std::string describe(Run& /*run*/) const override { return "count"; }
};

/// `end of l`, `beginning of l`: a place to put something, never something to get.
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
