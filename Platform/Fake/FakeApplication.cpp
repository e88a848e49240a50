#include "Platform/Fake/FakeApplication.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Platform::Fake {

FakeApplication::FakeApplication(AppleEventManager& appleEvents, NotificationCenter& notifications, Events* events)
    : appleEvents_(appleEvents), notifications_(notifications), events_(events) {}

void FakeApplication::terminate() {
  note(events_, "terminate");
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
    post(applicationDidFinishLaunchingNotification);
}

void FakeApplication::post(std::string_view name) {
  note(events_, "post " + std::string(name));
  notifications_.post({name, this});
}

void FakeApplication::postWillTerminateOnce() {
  if (terminations > 0)
    return;
  ++terminations;
  post(applicationWillTerminateNotification);
}

}  // namespace Platform::Fake
