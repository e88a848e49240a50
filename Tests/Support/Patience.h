#pragma once

#include <chrono>

namespace TestSupport {

/// How long a test waits for what has to come. Reached only if something is broken, so it is far more than a busy
/// machine takes, and less than a test program may run altogether.
inline constexpr std::chrono::minutes patience{3};

/// The same for interfaces that take a number of milliseconds.
constexpr int milliseconds(std::chrono::milliseconds time) {
  return static_cast<int>(time.count());
}

}  // namespace TestSupport
