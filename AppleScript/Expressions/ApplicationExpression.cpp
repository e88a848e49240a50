#include "AppleScript/Expressions/ApplicationExpression.h"

#include <utility>

#include "AppleScript/Values/Coercions.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

ApplicationExpression::ApplicationExpression(ExpressionPointer name, Application* known, SourceRange range)
    : Expression(range), name_(std::move(name)), known_(known) {}

Value ApplicationExpression::compute(Run& run) const {
  if (known_ != nullptr)
    return ObjectReference{nullptr, known_};
  const Value name = name_->evaluate(run);
  Application* application = run.applications().find(toText(name).view());
  if (application == nullptr)
    failToGet("application " + shortSourceForm(name));
  return ObjectReference{nullptr, application};
}

}  // namespace AppleScript
