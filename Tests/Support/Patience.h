#pragma once

#include <chrono>

namespace TestSupport {

/// How long a test waits for something. Reached only if something is broken, so it is far longer than a busy machine
/// needs, but shorter than a test program may run.
inline constexpr std::chrono::minutes patience{3};

/// The same as a number of milliseconds.
constexpr int milliseconds(std::chrono::milliseconds time) {
  return static_cast<int>(time.count());
}

}  // namespace TestSupport
