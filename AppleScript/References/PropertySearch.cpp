#include "AppleScript/References/PropertySearch.h"

#include <string>

#include "AppleScript/Operators/Comparison.h"
#include "AppleScript/References/PropertyForm.h"

namespace AppleScript {

std::optional<std::size_t> findByProperty(Run& run, const Elements& elements, std::string_view property,
                                          const Value& value) {
  const PropertyForm form{std::string(property)};
  const std::size_t size = elements.size();
  for (std::size_t i = 0; i < size; ++i) {
    const Found found = form.find(run, elements.at(i));
    if (found && areEqual(*found, value))
      return i;
  }
  return std::nullopt;
}

}  // namespace AppleScript
