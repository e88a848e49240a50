#pragma once

#include "Platform/Clock.h"

namespace Platform::Linux {

/// The system's clock.
class LinuxClock : public Clock {
 public:
  [[nodiscard]] Date now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace Platform::Linux
