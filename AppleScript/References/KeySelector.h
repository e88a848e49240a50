#pragma once

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ElementSelector.h"

namespace AppleScript {

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

}  // namespace AppleScript
