#pragma once

#include <expected>
#include <memory>
#include <string>

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

}  // namespace AppleScript
