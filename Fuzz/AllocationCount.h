#pragma once

#include <cstddef>

namespace Fuzz {

/// The number of bytes that this thread has allocated with `new` so far, including those that it has freed.
std::size_t allocatedBytes();

}  // namespace Fuzz
