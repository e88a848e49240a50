#include "Platform/Fake/FakeApplication.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Platform::Fake {

FakeApplication::FakeApplication(AppleEventManager& appleEvents, NotificationCenter& notifications)
    : appleEvents_(appleEvents), notifications_(notifications) {}

void FakeApplication::terminate() {
  ++terminateRequests;
  if (!delivering_)
    postWillTerminateOnce();
}

void FakeApplication::deliver(std::string launchURL) {
  launchURLs_.push_back(std::move(launchURL));
  if (delivering_)
    return;
  delivering_ = true;
  while (!launchURLs_.empty() && terminateRequests == 0) {
    const AppleEvent event = AppleEvent::getURL(std::move(launchURLs_.front()));
    launchURLs_.pop_front();
    appleEvents_.dispatch(event);
  }
  delivering_ = false;
  std::ranges::move(launchURLs_, std::back_inserter(undelivered));
  launchURLs_.clear();
  if (terminateRequests > 0)
    postWillTerminateOnce();
}

void FakeApplication::finishLaunching() {
  if (terminateRequests == 0)
    notifications_.post({applicationDidFinishLaunchingNotification, this});
}

void FakeApplication::postWillTerminateOnce() {
  if (terminations > 0)
    return;
  ++terminations;
  notifications_.post({applicationWillTerminateNotification, this});
}

}  // namespace Platform::Fake
