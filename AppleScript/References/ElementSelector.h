#pragma once

#include <memory>
#include <string>

#include "AppleScript/References/Elements.h"
#include "AppleScript/References/ReferenceForm.h"
#include "AppleScript/Running/Run.h"

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

}  // namespace AppleScript
