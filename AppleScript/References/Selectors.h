#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/Elements.h"
#include "AppleScript/References/ReferenceForms.h"
#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// Selects elements of a container: every one, the third, the one named "Downloads".
class ElementSelector {
 public:
  ElementSelector() = default;
  virtual ~ElementSelector() = default;
  ElementSelector(const ElementSelector&) = delete;
  ElementSelector& operator=(const ElementSelector&) = delete;

  [[nodiscard]] virtual Found select(Run& run, const Elements& elements) const = 0;
  /// Whether the selection is a list that stands for many objects.
  [[nodiscard]] virtual bool yieldsMany() const { return false; }
  /// Whether a filter after it belongs to it rather than to a part of the reference further out.
  [[nodiscard]] virtual bool invitesFilter() const { return false; }
  /// Whether it selects all elements.
  [[nodiscard]] virtual bool selectsAll() const { return false; }
  /// The index of the element to be set; `nullopt` if there is not exactly one.
  [[nodiscard]] virtual std::optional<std::size_t> locate(Run& run, const Elements& elements) const;

  /// The script's words for the selection: "window 3".
  [[nodiscard]] virtual std::string describe(Run& run, const ClassDescription& elementClass) const = 0;
};

using ElementSelectorPointer = std::unique_ptr<const ElementSelector>;

/// The index, counted from 0, of the element that scripts call `number`: they count from 1, or backwards from -1.
/// `nullopt` if there is no such element.
[[nodiscard]] std::optional<std::size_t> indexFromNumber(std::int64_t number, std::size_t size);

/// `every window`, `windows`.
class EverySelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& /*run*/, const Elements& elements) const override { return elements.all(); }
  [[nodiscard]] bool yieldsMany() const override { return true; }
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] bool selectsAll() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "every " + std::string(elementClass.name);
  }
};

/// `number of windows`. Looks at none of them.
class CountSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& /*run*/, const Elements& elements) const override { return elements.size(); }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "every " + std::string(elementClass.name);
  }
};

/// `some item`: a random one.
class SomeSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "some " + std::string(elementClass.name);
  }
};

/// `middle item`.
class MiddleSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool invitesFilter() const override { return true; }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "middle " + std::string(elementClass.name);
  }
};

/// `window 3`, `window -1`, `first window`: the element with that number. `window "Downloads"`: the one with that name.
class KeySelector : public ElementSelector {
 public:
  enum class Style { key, ordinal };

  KeySelector(ExpressionPointer key, Style style);

  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool invitesFilter() const override { return style_ == Style::ordinal; }
  [[nodiscard]] std::optional<std::size_t> locate(Run& run, const Elements& elements) const override;
  [[nodiscard]] std::string describe(Run& run, const ClassDescription& elementClass) const override;

 private:
  ExpressionPointer key_;
  Style style_;
};

/// `window id 7`: the element with that `id`.
class IDSelector : public ElementSelector {
 public:
  explicit IDSelector(ExpressionPointer id) : id_(std::move(id)) {}

  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] std::string describe(Run& run, const ClassDescription& elementClass) const override;

 private:
  ExpressionPointer id_;
};

/// `items 2 thru 4`, `characters 1 thru -1`.
class RangeSelector : public ElementSelector {
 public:
  RangeSelector(ExpressionPointer first, ExpressionPointer last);

  [[nodiscard]] Found select(Run& run, const Elements& elements) const override;
  [[nodiscard]] bool yieldsMany() const override { return true; }
  [[nodiscard]] std::string describe(Run& run, const ClassDescription& elementClass) const override;

 private:
  ExpressionPointer first_;
  ExpressionPointer last_;
};

/// The index of the first element whose `property` equals `value`. Elements without the property are skipped.
[[nodiscard]] std::optional<std::size_t> findByProperty(Run& run, const Elements& elements, std::string_view property,
                                                        const Value& value);

}  // namespace AppleScript
