#pragma once

#include <atomic>
#include <deque>
#include <string>
#include <vector>

#include "Platform/AppleEventManager.h"
#include "Platform/Application.h"

namespace Platform::Linux {

/// The running process as an application on GLib's main context. For the main thread alone, except for `isTerminating`.
class LinuxApplication : public Application {
 public:
  LinuxApplication(AppleEventManager& appleEvents, NotificationCenter& notifications);

  void terminate() override { isTerminating_ = true; }
  /// Whether the application was asked to terminate. May be called on any thread.
  [[nodiscard]] bool isTerminating() const { return isTerminating_; }

  /// Delivers a launch URL as an Apple event, after those that are still being delivered: one at a time. If the
  /// application was asked to terminate, keeps it for a fresh process instead.
  void deliver(std::string launchURL);

  /// Takes the launch URLs that were not delivered because the application was asked to terminate, in their order.
  [[nodiscard]] std::vector<std::string> takeUndelivered();

  /// Ends the wait for the message that a process started by the bus is there for. Where launching has finished, does
  /// nothing.
  void activate() { isActivated_ = true; }

  /// Runs the main context until a launch URL or an activation has come, or for ten seconds at most; then an
  /// application that nobody wants anything of terminates.
  void awaitActivation();

  /// Posts the finished-launching notification and runs the main context until the application is asked to terminate.
  /// Where it has been asked already, does neither.
  void run();

  /// Posts the will-terminate notification, once.
  void postWillTerminate();

 private:
  AppleEventManager& appleEvents_;
  NotificationCenter& notifications_;
  std::deque<std::string> launchURLs_;
  bool isDelivering_ = false;
  bool isActivated_ = false;
  std::atomic<bool> isTerminating_ = false;
  bool hasPostedWillTerminate_ = false;
};

}  // namespace Platform::Linux
