#include "AppleScript/Syntax/ReferenceHead.h"

#include <string>
#include <utility>

#include "AppleScript/References/CountForm.h"
#include "AppleScript/References/PropertyForm.h"

namespace AppleScript {

ReferenceHead ReferenceHead::ofExpression(ExpressionPointer expression) {
  return {.expression = std::move(expression), .link = {}};
}

ReferenceHead ReferenceHead::ofForm(std::unique_ptr<ReferenceForm> form) {
  return {.expression = nullptr, .link = {.form = std::move(form)}};
}

ReferenceHead ReferenceHead::ofElements(const ClassDescription& elementClass, ElementSelectorPointer selector) {
  auto form = std::make_unique<ElementForm>(elementClass, std::move(selector));
  ElementForm* elements = form.get();
  return {.expression = nullptr, .link = {.form = std::move(form), .elements = elements}};
}

ReferenceHead ReferenceHead::ofProperty(std::string_view name) {
  return ofForm(std::make_unique<PropertyForm>(std::string(name)));
}

ReferenceHead ReferenceHead::ofCount() {
  return {.expression = nullptr, .link = {.form = std::make_unique<CountForm>(), .counts = true}};
}

}  // namespace AppleScript
