#pragma once

#include <cstddef>

#include "BrowserSessions/BrowserSession.h"

namespace Fuzz {

/// What an input must have at least for each tab and each window that is read from it, in bytes.
struct SmallestSizes {
  std::size_t tab;
  std::size_t window;
};

/// Stops the process where the layers above could not rely on the session, or more is in it than fits into an input of
/// this size.
void requireSound(const BrowserSessions::BrowserSession& session, std::size_t inputSize, SmallestSizes smallest);

}  // namespace Fuzz
