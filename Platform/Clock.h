#pragma once

#include <chrono>

namespace Platform {

/// A moment of the wall clock (NSDate): seconds since 1970.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

/// The wall clock, which can be set.
class Clock {
 public:
  virtual ~Clock() = default;

  /// The current date (NSDate.date). May be called on any thread.
  [[nodiscard]] virtual Date now() const = 0;
};

}  // namespace Platform
