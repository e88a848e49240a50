#include "Platform/Linux/LinuxApplication.h"

#include <utility>

#include <glib.h>

namespace Platform::Linux {

namespace {

constexpr guint longestWaitInSeconds = 10;

}  // namespace

LinuxApplication::LinuxApplication(AppleEventManager& appleEvents, NotificationCenter& notifications)
    : appleEvents_(appleEvents), notifications_(notifications) {}

void LinuxApplication::deliver(LaunchQueue& launches) {
  while (!isTerminating_) {
    auto launch = launches.begin();
    if (!launch)
      return;
    wasLaunched_ = true;
    if (launch->url)
      appleEvents_.dispatch(AppleEvent::getURL(std::move(*launch->url)));
    launches.finish();
  }
}

void LinuxApplication::awaitLaunch() {
  bool timedOut = false;
  const guint timer = g_timeout_add_seconds(
      longestWaitInSeconds,
      [](gpointer flag) -> gboolean {
        *static_cast<bool*>(flag) = true;
        return G_SOURCE_CONTINUE;
      },
      &timedOut);
  while (!wasLaunched_ && !timedOut)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  g_source_remove(timer);
  if (!wasLaunched_)
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
