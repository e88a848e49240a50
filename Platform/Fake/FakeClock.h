#pragma once

#include "Platform/Clock.h"

namespace Platform::Fake {

/// A clock that shows what the test sets it to. `FakeQueues::advance` moves it on.
class FakeClock : public Clock {
 public:
  [[nodiscard]] Date now() const override { return date; }

  /// What it shows, until it is set or moved on.
  Date date{std::chrono::seconds(1'000'000'000)};
};

}  // namespace Platform::Fake
