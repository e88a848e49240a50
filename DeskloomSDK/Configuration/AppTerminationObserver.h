#pragma once

#include <functional>
#include <memory>

namespace DeskloomSDK {

/// Runs a callback when the application is about to quit, synchronously and on the main thread: the application waits
/// for it.
class AppTerminationObserver {
 public:
  /// What to run; it must not throw.
  using Callback = std::function<void()>;

  /// Observes the shared application from here on, to the end of the process; once the observer is gone, nothing runs.
  /// May be called on any thread. Stops the process with a fatal error where there is no shared application.
  explicit AppTerminationObserver(Callback onRun);
  AppTerminationObserver(const AppTerminationObserver&) = delete;
  AppTerminationObserver& operator=(const AppTerminationObserver&) = delete;
  ~AppTerminationObserver() = default;

  /// What to run; nothing where it is empty.
  [[nodiscard]] Callback& onRun() { return *onRun_; }

 private:
  /// Shared with nobody for longer than it takes to copy the callback.
  std::shared_ptr<Callback> onRun_;
};

}  // namespace DeskloomSDK
