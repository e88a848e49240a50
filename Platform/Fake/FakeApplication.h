#pragma once

#include <deque>
#include <string>
#include <vector>

#include "Platform/Application.h"
#include "Platform/Fake/Events.h"
#include "Platform/Lifetime.h"

/// A desktop for tests: records what it is asked for, and answers as the test has told it to.
namespace Platform::Fake {

/// An application that lives and ends when the test says so.
class FakeApplication : public LaunchedApplication {
 public:
  /// Delivers its launch URLs to `appleEvents` and posts its notifications to `notifications`. Adds the requests to
  /// terminate and the notifications to `events`, unless that is null.
  FakeApplication(AppleEventManager& appleEvents, NotificationCenter& notifications, Events* events = nullptr);

  /// Counts the request. The will-terminate notification is posted after the launch URL that is being delivered, or at
  /// once if none is.
  void terminate() override;

  /// Delivers a launch URL as the desktop would: after those that are still being delivered, and not at all after the
  /// application was asked to terminate. Ends the application after the one that asked for that.
  void deliver(std::string launchURL);

  /// Sets the application back to before it was asked to terminate, with both counts at 0.
  void restart();

  /// How often `terminate` was called.
  int terminateRequests = 0;
  /// How often the will-terminate notification was posted.
  int terminations = 0;
  /// The launch URLs that came after the application was asked to terminate. A desktop gives them to a fresh process.
  std::vector<std::string> undelivered;

 private:
  Events* events_;
  std::deque<std::string> launchURLs_;
  Lifetime lifetime_;
};

}  // namespace Platform::Fake
