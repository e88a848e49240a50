#include "AppleScript/References/IDSelector.h"

#include "AppleScript/References/PropertySearch.h"
#include "AppleScript/Values/Dereference.h"
#include "AppleScript/Values/SourceForm.h"

namespace AppleScript {

Found IDSelector::select(Run& run, const Elements& elements) const {
  const Value id = dereferenced(id_->evaluate(run));
  const auto index = findByProperty(run, elements, "id", id);
  if (!index)
    return std::unexpected(std::string(elements.elementClass().name) + " id " + shortSourceForm(id));
  return elements.at(*index);
}

std::string IDSelector::describe(Run& run, const ClassDescription& elementClass) const {
  const auto id = id_->valueAtHand(run);
  return std::string(elementClass.name) + (id ? " id " + shortSourceForm(*id) : "");
}

}  // namespace AppleScript
