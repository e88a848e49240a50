#include "AppleScript/References/SomeSelector.h"

namespace AppleScript {

Found SomeSelector::select(Run& run, const Elements& elements) const {
  const std::size_t size = elements.size();
  return size == 0 ? std::unexpected(describe(run, elements.elementClass()))
                   : Found(elements.at(run.randomIndex(size)));
}

}  // namespace AppleScript
