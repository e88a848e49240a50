#include "AppleScript/Expressions/ExistsExpression.h"

#include "AppleScript/Values/Failure.h"

namespace AppleScript {

Value ExistsExpression::compute(Run& run) const {
  try {
    return !reference_->evaluate(run).isMissing();
  } catch (const Failure& failure) {
    const ErrorNumber number = failure.error.number;
    if (number != ErrorNumber::noSuchObject && number != ErrorNumber::badIndex)
      throw;
    return false;
  }
}

}  // namespace AppleScript
