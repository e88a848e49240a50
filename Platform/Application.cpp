#include "Platform/Application.h"

#include <utility>

namespace Platform {

void LaunchedApplication::deliver(const NextLaunch& next) {
  if (isDelivering_)
    return;
  isDelivering_ = true;
  while (!isTerminating_) {
    std::optional<Launch> launch = next();
    if (!launch)
      break;
    if (launch->url)
      appleEvents_.dispatch(AppleEvent::getURL(std::move(*launch->url)));
    if (launch->finished)
      launch->finished();
  }
  isDelivering_ = false;
}

void LaunchedApplication::finishLaunching() {
  if (!isTerminating_)
    notifications_.post({applicationDidFinishLaunchingNotification, this});
}

void LaunchedApplication::postWillTerminate() {
  if (!std::exchange(hasPostedWillTerminate_, true))
    notifications_.post({applicationWillTerminateNotification, this});
}

}  // namespace Platform
