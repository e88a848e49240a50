#pragma once

#include <atomic>

#include "Linux/Launching/LaunchQueue.h"
#include "Platform/AppleEventManager.h"
#include "Platform/Application.h"

namespace Linux {

/// The running process as an application on GLib's main context. For the main thread alone, except for `isTerminating`.
class Application : public Platform::Application {
 public:
  Application(Platform::AppleEventManager& appleEvents, Platform::NotificationCenter& notifications);

  void terminate() override { isTerminating_ = true; }
  /// Whether the application was asked to terminate. May be called on any thread.
  [[nodiscard]] bool isTerminating() const { return isTerminating_; }

  /// Delivers the launches that wait as Apple events, one after the other, until none waits or the application was
  /// asked to terminate. While one is being delivered, does nothing: a handler that runs the main context, for an
  /// alert, is not interrupted by the next one.
  void deliver(LaunchQueue& launches);

  /// Runs the main context until a launch has come or the application is asked to terminate. If no launch comes within
  /// ten seconds, the application terminates.
  void awaitLaunch();

  /// Posts the finished-launching notification and runs the main context until the application is asked to terminate.
  /// Where it has been asked already, does neither.
  void run();

  /// Posts the will-terminate notification, once.
  void postWillTerminate();

 private:
  Platform::AppleEventManager& appleEvents_;
  Platform::NotificationCenter& notifications_;
  bool wasLaunched_ = false;
  std::atomic<bool> isTerminating_ = false;
  bool hasPostedWillTerminate_ = false;
};

}  // namespace Linux
