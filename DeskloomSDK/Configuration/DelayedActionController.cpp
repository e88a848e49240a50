#include "DeskloomSDK/Configuration/DelayedActionController.h"

#include <utility>

#include "Platform/Services.h"

namespace DeskloomSDK {

namespace {

constexpr std::chrono::duration<double> quietPeriod{1.0};

}  // namespace

DelayedActionController::DelayedActionController(double interval, std::optional<Platform::Date> lastTime, Action action)
    : interval_(interval), pending_(std::make_shared<Pending>(lastTime, std::move(action))) {}

void DelayedActionController::perform() {
  pending_->lastTime = Platform::services().clock.now();
  // The background holds only a weak reference, so that the action is released on the main thread.
  auto& queues = Platform::services().queues;
  queues.runInBackground([&queues, pending = std::weak_ptr(pending_)] {
    if (pending.expired())
      return;
    queues.sleep(quietPeriod);
    queues.runOnMain([pending] { check(pending); });
  });
}

void DelayedActionController::check(const std::weak_ptr<Pending>& pending) {
  const auto existing = pending.lock();
  const auto lastTime = existing ? existing->lastTime : std::nullopt;
  if (lastTime && Platform::services().clock.now() - *lastTime >= quietPeriod)
    existing->action();
}

}  // namespace DeskloomSDK
