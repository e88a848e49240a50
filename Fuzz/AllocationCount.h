#pragma once

#include <cstddef>

namespace Fuzz {

/// How many bytes this thread has allocated with `new` so far, those that it has freed included.
std::size_t allocatedBytes();

}  // namespace Fuzz
