#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Platform/Queues.h"

namespace DeskloomSDK {

/// Turns a burst of requests into one run of an action: the action runs on the main thread once a full second has
/// passed without a further request. For the main thread alone.
///
/// Each request looks again a second later, by the wall clock, whether it was the last. So the action may run more than
/// once for a burst where the main thread was busy when it had settled, and not at all where the clock was set back.
class DelayedActionController {
 public:
  /// The work to do once a burst has settled.
  using Action = std::function<void()>;

  /// `interval` is the quiet period in seconds that the owner has in mind; it is carried along, and changes nothing.
  /// `lastTime` is the time of the latest request, if there was one.
  DelayedActionController(double interval, std::optional<Platform::Date> lastTime, Action action);
  DelayedActionController(const DelayedActionController&) = delete;
  DelayedActionController& operator=(const DelayedActionController&) = delete;
  ~DelayedActionController() = default;

  /// The seconds that it was made with.
  [[nodiscard]] double interval() const { return interval_; }
  /// The time of the latest request; none before the first.
  [[nodiscard]] std::optional<Platform::Date> lastTime() const { return pending_->lastTime; }

  /// Requests the action and returns at once.
  void perform();

 private:
  /// What the work on its way looks for; once the controller is gone, it finds nothing and does nothing.
  struct Pending {
    std::optional<Platform::Date> lastTime;
    Action action;
  };

  static void check(const std::weak_ptr<Pending>& pending);

  double interval_;
  std::shared_ptr<Pending> pending_;
};

}  // namespace DeskloomSDK
