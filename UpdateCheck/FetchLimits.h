#pragma once

#include <chrono>
#include <cstdint>

namespace UpdateCheck {

/// How much a server may ask of us.
struct FetchLimits {
  std::uint64_t bytes;
  /// The time in which all has to be there, and that in which the connection has to be. Files on disk are not timed.
  std::chrono::milliseconds total;
  std::chrono::milliseconds connecting = std::chrono::seconds(10);
};

}  // namespace UpdateCheck
