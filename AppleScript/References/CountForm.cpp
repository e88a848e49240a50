#include "AppleScript/References/CountForm.h"

#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

Found CountForm::find(Run& /*run*/, const Value& container) const {
  if (const auto* list = container.getIf<List>())
    return list->size();
  if (const auto* text = container.getIf<Text>())
    return text->characterCount();
  if (const auto* record = container.getIf<Record>())
    return record->size();
  fail(ErrorNumber::notUnderstood, shortSourceForm(container) + " doesn’t understand the “count” message.");
}

}  // namespace AppleScript
