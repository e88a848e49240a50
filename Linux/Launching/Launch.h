#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace Linux {

/// Who asked for launches, by the bus, and waits to hear that they are in good hands. Whoever lets go of the last
/// reference accepts. May be called on any thread; the first word counts.
class LaunchCaller {
 public:
  virtual ~LaunchCaller() = default;

  /// Says that the launches are done, or will be.
  virtual void accept() = 0;
  /// Says that they are not, and why not.
  virtual void refuse(const std::string& reason) = 0;
  /// Whether the caller does a launch itself that is refused.
  [[nodiscard]] virtual bool helpsItself() const = 0;
};

/// One thing that the application was started or called for.
struct Launch {
  using Clock = std::chrono::steady_clock;

  /// Untouched; none if the application is only to be there.
  std::optional<std::string> url;
  /// Until when it has to begin in this process; none if it waits for its turn however long that takes.
  std::optional<Clock::time_point> beginBy = std::nullopt;
  /// None for what stood on the command line.
  std::shared_ptr<LaunchCaller> caller = nullptr;
};

}  // namespace Linux
