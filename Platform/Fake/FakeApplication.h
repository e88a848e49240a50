#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/AppleEventManager.h"
#include "Platform/Application.h"
#include "Platform/Fake/Events.h"

/// A desktop for tests: notes what is asked of it, and answers what it is told.
namespace Platform::Fake {

/// An application that lives and ends when the test says so.
class FakeApplication : public Application {
 public:
  /// Delivers its launch URLs to `appleEvents` and posts its notifications to `notifications`. Adds both its requests
  /// and its notifications to `events`, unless that is null.
  FakeApplication(AppleEventManager& appleEvents, NotificationCenter& notifications, Events* events = nullptr);

  /// Counts the request. The will-terminate notification is posted by `deliver` behind the launch URL, or at once where
  /// none is being delivered.
  void terminate() override;

  /// Delivers a launch URL as the desktop would: after those that are still being delivered, and not at all once the
  /// application was asked to terminate. Ends the application after the one that asked for that.
  void deliver(std::string launchURL);

  /// Posts the finished-launching notification, unless the application has been asked to terminate.
  void finishLaunching();

  /// How often `terminate` was called.
  int terminateRequests = 0;
  /// How often the will-terminate notification was posted.
  int terminations = 0;
  /// The launch URLs that came after the application was asked to terminate; a desktop gives them to a fresh process.
  std::vector<std::string> undelivered;

 private:
  void post(std::string_view name);
  void postWillTerminateOnce();

  AppleEventManager& appleEvents_;
  NotificationCenter& notifications_;
  Events* events_;
  std::deque<std::string> launchURLs_;
  bool delivering_ = false;
};

}  // namespace Platform::Fake
