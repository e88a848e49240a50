#include "AppleScript/References/ReferenceForm.h"

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

void failToSet(const std::string& what, const Value& container, const Value& value) {
  fail(ErrorNumber::cantSet,
       "Can’t set " + what + " of " + shortSourceForm(container) + " to " + shortSourceForm(value) + ".");
}

// Overriders keep the value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ReferenceForm::assign(Run& run, const Value& container, Value value) const {
  failToSet(describe(run), container, value);
}

}  // namespace AppleScript
