#include "Platform/Fake/FakeApplication.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Platform::Fake {

FakeApplication::FakeApplication(AppleEventManager& appleEvents, NotificationCenter& notifications, Events* events)
    : LaunchedApplication(appleEvents, notifications), events_(events) {
  for (const auto name : {applicationDidFinishLaunchingNotification, applicationWillTerminateNotification})
    notifications.addObserver(name, this, lifetime_.guarded([this](const Notification& notification) {
      note(events_, "post " + std::string(notification.name));
      if (notification.name == applicationWillTerminateNotification)
        ++terminations;
    }));
}

void FakeApplication::terminate() {
  note(events_, "terminate");
  ++terminateRequests;
  LaunchedApplication::terminate();
  if (!isDelivering())
    postWillTerminate();
}

void FakeApplication::deliver(std::string launchURL) {
  launchURLs_.push_back(std::move(launchURL));
  if (isDelivering())
    return;
  LaunchedApplication::deliver([this]() -> std::optional<Launch> {
    if (launchURLs_.empty())
      return std::nullopt;
    Launch next{.url = std::move(launchURLs_.front())};
    launchURLs_.pop_front();
    return next;
  });
  std::ranges::move(launchURLs_, std::back_inserter(undelivered));
  launchURLs_.clear();
  if (isTerminating())
    postWillTerminate();
}

void FakeApplication::restart() {
  LaunchedApplication::restart();
  terminateRequests = 0;
  terminations = 0;
}

}  // namespace Platform::Fake
