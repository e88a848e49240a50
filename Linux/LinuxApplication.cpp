#include "Linux/LinuxApplication.h"

#include <chrono>
#include <utility>

#include <glib.h>

#include "Linux/Launching/Ticks.h"

namespace Platform::Linux {

namespace {

constexpr std::chrono::seconds longestWait{10};

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
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  const Ticks ticks;
  while (!wasLaunched_ && !isTerminating_ && std::chrono::steady_clock::now() < deadline)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
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
