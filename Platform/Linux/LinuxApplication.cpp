#include "Platform/Linux/LinuxApplication.h"

#include <iterator>
#include <utility>

#include <glib.h>

namespace Platform::Linux {

namespace {

constexpr guint activationSeconds = 10;

}  // namespace

LinuxApplication::LinuxApplication(AppleEventManager& appleEvents, NotificationCenter& notifications)
    : appleEvents_(appleEvents), notifications_(notifications) {}

void LinuxApplication::deliver(std::string launchURL) {
  activate();
  launchURLs_.push_back(std::move(launchURL));
  if (isDelivering_)  // a handler that runs the main context, for an alert, is not interrupted by the next URL
    return;
  isDelivering_ = true;
  while (!launchURLs_.empty() && !isTerminating_) {
    const AppleEvent event = AppleEvent::getURL(std::move(launchURLs_.front()));
    launchURLs_.pop_front();
    appleEvents_.dispatch(event);
  }
  isDelivering_ = false;
}

std::vector<std::string> LinuxApplication::takeUndelivered() {
  std::vector<std::string> undelivered(std::make_move_iterator(launchURLs_.begin()),
                                       std::make_move_iterator(launchURLs_.end()));
  launchURLs_.clear();
  return undelivered;
}

void LinuxApplication::awaitActivation() {
  bool timedOut = false;
  const guint timer = g_timeout_add_seconds(
      activationSeconds,
      [](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_CONTINUE;
      },
      &timedOut);
  while (!isActivated_ && !timedOut)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  g_source_remove(timer);
  if (!isActivated_)
    terminate();
}

void LinuxApplication::run() {
  if (!isTerminating_)
    notifications_.post({applicationDidFinishLaunchingNotification, this});
  while (!isTerminating_)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

void LinuxApplication::postWillTerminate() {
  if (std::exchange(hasPostedWillTerminate_, true))
    return;
  notifications_.post({applicationWillTerminateNotification, this});
}

}  // namespace Platform::Linux
