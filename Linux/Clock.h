#pragma once

#include "Platform/Clock.h"

namespace Linux {

/// The system's clock.
class Clock : public Platform::Clock {
 public:
  [[nodiscard]] Platform::Date now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace Linux
