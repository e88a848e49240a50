#include "AppleScript/References/MiddleSelector.h"

namespace AppleScript {

Found MiddleSelector::select(Run& run, const Elements& elements) const {
  const std::size_t size = elements.size();
  return size == 0 ? std::unexpected(describe(run, elements.elementClass())) : Found(elements.at((size - 1) / 2));
}

}  // namespace AppleScript
