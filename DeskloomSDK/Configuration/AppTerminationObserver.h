#pragma once

#include <functional>
#include <memory>

namespace DeskloomSDK {

/// Runs a callback on the main thread when the application is about to quit. The application waits for it.
class AppTerminationObserver {
 public:
  /// The callback's type. A callback must not throw.
  using Callback = std::function<void()>;

  /// Observes the shared application from now on, until the observer is destroyed. May be called on any thread. Stops
  /// the process with a fatal error if there is no shared application.
  explicit AppTerminationObserver(Callback onRun);
  AppTerminationObserver(const AppTerminationObserver&) = delete;
  AppTerminationObserver& operator=(const AppTerminationObserver&) = delete;
  ~AppTerminationObserver() = default;

  /// The callback, which may be changed. Nothing runs if it is empty.
  [[nodiscard]] Callback& onRun() { return *onRun_; }

 private:
  /// Shared with nobody for longer than it takes to copy the callback.
  std::shared_ptr<Callback> onRun_;
};

}  // namespace DeskloomSDK
