#pragma once

#include <cstddef>

#include "BrowserSessions/BrowserSession.h"

namespace Fuzz {

/// The least number of bytes that an input needs for a tab and for a window.
struct SmallestSizes {
  std::size_t tab;
  std::size_t window;
};

/// Stops the process if the layers above cannot rely on the session, or if it holds more than an input of this size
/// can.
void requireSound(const BrowserSessions::BrowserSession& session, std::size_t inputSize, SmallestSizes smallest);

}  // namespace Fuzz
