#pragma once

#include <cstddef>
#include <optional>
#include <variant>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The elements of one class in a container, in order; they are not taken from the container before they are asked for.
class Elements {
 public:
  /// The elements of the class `elementClass` in `container`; none where it cannot have such elements.
  [[nodiscard]] static std::optional<Elements> in(Run& run, const Value& container,
                                                  const ClassDescription& elementClass);
  /// All items of `list`, which nobody else holds, taken for elements of this class.
  Elements(List list, const ClassDescription& elementClass);

  [[nodiscard]] const ClassDescription& elementClass() const { return *class_; }
  [[nodiscard]] std::size_t size() const;
  /// The element at `index`, counted from 0 and below `size()`.
  [[nodiscard]] Value at(std::size_t index) const;
  /// `count` elements from `first` on, as a list; as one text where the elements are `text`.
  [[nodiscard]] Value range(std::size_t first, std::size_t count) const;

  /// All of them, as a new list; as one text where the elements are `text`.
  [[nodiscard]] Value all() const;

 private:
  struct OfObject {
    ObjectReference container;
    const ElementsDescription* description;
  };
  using Source = std::variant<List, Text, OfObject>;

  Elements(Source source, const ClassDescription& elementClass);
  [[nodiscard]] static std::optional<Source> sourceIn(Run& run, const Value& container, const ClassDescription& wanted);
  [[nodiscard]] static std::optional<Source> sourceInObject(Run& run, const ObjectReference& container,
                                                            const ClassDescription& wanted);

  Source source_;
  const ClassDescription* class_;
  bool ownsList_ = false;
};

}  // namespace AppleScript
