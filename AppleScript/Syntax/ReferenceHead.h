#pragma once

#include <memory>
#include <string_view>

#include "AppleScript/Expressions/Expression.h"
#include "AppleScript/References/ElementForm.h"
#include "AppleScript/References/ReferenceForm.h"

namespace AppleScript {

/// A reference form while it is being read, with what is known about it.
struct ReferenceLink {
  std::unique_ptr<ReferenceForm> form;
  /// The form itself, where it is one of elements.
  ElementForm* elements = nullptr;
  /// Whether it is `count` or `number`.
  bool counts = false;
};

/// What a reference, or what stands behind an `of`, begins with: an expression to build on or, where that is null, a
/// form.
struct ReferenceHead {
  ExpressionPointer expression;
  ReferenceLink link;

  [[nodiscard]] static ReferenceHead ofExpression(ExpressionPointer expression);
  [[nodiscard]] static ReferenceHead ofForm(std::unique_ptr<ReferenceForm> form);
  [[nodiscard]] static ReferenceHead ofElements(const ClassDescription& elementClass, ElementSelectorPointer selector);
  [[nodiscard]] static ReferenceHead ofProperty(std::string_view name);
  [[nodiscard]] static ReferenceHead ofCount();
};

}  // namespace AppleScript
