#pragma once

#include <cstddef>
#include <optional>
#include <variant>

#include "AppleScript/Running/Run.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript {

/// The elements of one class in a container, in order. An element is fetched from the container only when it is asked
/// for.
class Elements {
 public:
  /// The elements of the class `elementClass` in `container`; `nullopt` if it cannot have such elements.
  [[nodiscard]] static std::optional<Elements> in(Run& run, const Value& container,
                                                  const ClassDescription& elementClass);
  /// The items of `list`, as elements of this class. Nobody else may hold `list`.
  Elements(List list, const ClassDescription& elementClass);

  [[nodiscard]] const ClassDescription& elementClass() const { return *class_; }
  [[nodiscard]] std::size_t size() const;
  /// The element at `index`, counted from 0 and below `size()`.
  [[nodiscard]] Value at(std::size_t index) const;
  /// `count` elements from the index `first`, as a list; as one text if the class is `text`.
  [[nodiscard]] Value range(std::size_t first, std::size_t count) const;

  /// All elements, as a new list; as one text if the class is `text`.
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
