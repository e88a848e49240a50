#include "AppleScript/Statements/RepeatItemsStatement.h"

#include <utility>

#include "AppleScript/References/Elements.h"
#include "AppleScript/Values/BuiltInClasses.h"
#include "AppleScript/Values/Dereference.h"
#include "AppleScript/Values/Failure.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

namespace {

/// The list to walk through: that itself, or the characters of a text.
List listToWalk(Run& run, const Value& value) {
  const Value& whole = dereferenced(value);
  if (const auto* list = whole.getIf<List>())
    return *list;
  const auto characters = Elements::in(run, whole, BuiltInClasses::character);
  if (!characters)
    failToGet("every item of " + shortSourceForm(whole));
  return *characters->range(0, characters->size()).getIf<List>();
}

}  // namespace

RepeatItemsStatement::RepeatItemsStatement(ExpressionPointer variable, ExpressionPointer list, StatementPointer body)
    : RepeatStatement(std::move(body)), variable_(std::move(variable)), list_(std::move(list)) {}

Flow RepeatItemsStatement::execute(Run& run) const {
  const List list = list_->evaluateAs(run, [&run](const Value& value) { return listToWalk(run, value); });
  // Items that the body adds are not walked through.
  const std::size_t size = list.size();
  for (std::size_t i = 0; i < size; ++i) {
    variable_->assign(run, ItemReference{list, i});
    if (const auto end = round(run))
      return *end;
  }
  return Flow::next;
}

}  // namespace AppleScript
