#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "Platform/Queues.h"

namespace DeskloomSDK {

/// Turns a burst of requests into one run of an action: the action runs on the main thread after a full second without
/// a further request. Used on the main thread only.
///
/// Each request checks a second later, by the wall clock, whether it was the last. So the action may run more than once
/// if the main thread was busy at the end of the burst, and not at all if the clock was set back.
class DelayedActionController {
 public:
  /// The action's type.
  using Action = std::function<void()>;

  /// `interval` is the owner's quiet period in seconds. It is stored and has no effect: the period is always one
  /// second. `lastTime` is the time of the latest request, if there was one.
  DelayedActionController(double interval, std::optional<Platform::Date> lastTime, Action action);
  DelayedActionController(const DelayedActionController&) = delete;
  DelayedActionController& operator=(const DelayedActionController&) = delete;
  ~DelayedActionController() = default;

  /// The interval that was passed to the constructor.
  [[nodiscard]] double interval() const { return interval_; }
  /// The time of the latest request; `nullopt` before the first.
  [[nodiscard]] std::optional<Platform::Date> lastTime() const { return pending_->lastTime; }

  /// Requests the action and returns at once.
  void perform();

 private:
  /// What pending checks look at. They do nothing once the controller has destroyed it.
  struct Pending {
    std::optional<Platform::Date> lastTime;
    Action action;
  };

  static void check(const std::weak_ptr<Pending>& pending);

  double interval_;
  std::shared_ptr<Pending> pending_;
};

}  // namespace DeskloomSDK
