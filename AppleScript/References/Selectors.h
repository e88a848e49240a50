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

/// Which of a container's elements a reference means: `every`, the third, the one named "Downloads".
class ElementSelector {
 public:
  ElementSelector() = default;
  virtual ~ElementSelector() = default;
  ElementSelector(const ElementSelector&) = delete;
  ElementSelector& operator=(const ElementSelector&) = delete;

  [[nodiscard]] virtual Found select(Run& run, const Elements& elements) const = 0;
  /// Whether it selects a list that stands for many objects.
  [[nodiscard]] virtual bool yieldsMany() const { return false; }
  /// Whether a filter that follows is meant for it, rather than for a reference further out.
  [[nodiscard]] virtual bool invitesFilter() const { return false; }
  /// Whether it selects all there is.
  [[nodiscard]] virtual bool selectsAll() const { return false; }
  /// The index of the one element that it selects, for `set`; none where it selects none or many.
  [[nodiscard]] virtual std::optional<std::size_t> locate(Run& run, const Elements& elements) const;

  /// How the script calls its selection from elements of this class: "window 3".
  [[nodiscard]] virtual std::string describe(Run& run, const ClassDescription& elementClass) const = 0;
};

using ElementSelectorPointer = std::unique_ptr<const ElementSelector>;

/// The index, counted from 0, that a script means by `number`, which counts from 1, or from -1 backwards; none where
/// there is no such element.
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

/// `number of windows`: how many there are; none of them is looked at.
class CountSelector : public ElementSelector {
 public:
  [[nodiscard]] Found select(Run& /*run*/, const Elements& elements) const override { return elements.size(); }
  [[nodiscard]] std::string describe(Run& /*run*/, const ClassDescription& elementClass) const override {
    return "every " + std::string(elementClass.name);
  }
};

/// `some item`: any one of them.
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

/// `window 3`, `window -1`, `first window`, `window "Downloads"`: the element of that number or, where the key is a
/// text, of that name.
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

/// `window id 7`: the element whose property `id` is that.
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

/// The index of the first element whose property `property` equals `value`; elements without that property are passed
/// by.
[[nodiscard]] std::optional<std::size_t> findByProperty(Run& run, const Elements& elements, std::string_view property,
                                                        const Value& value);

}  // namespace AppleScript
