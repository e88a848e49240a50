#include "Linux/Application.h"

#include <chrono>
#include <utility>

#include <glib.h>

#include "Linux/Launching/Ticks.h"

namespace Linux {

namespace {

constexpr std::chrono::seconds longestWait{10};

}  // namespace

Application::Application(Platform::AppleEventManager& appleEvents, Platform::NotificationCenter& notifications)
    : appleEvents_(appleEvents), notifications_(notifications) {}

void Application::deliver(LaunchQueue& launches) {
  while (!isTerminating_) {
    auto launch = launches.begin();
    if (!launch)
      return;
    wasLaunched_ = true;
    if (launch->url)
      appleEvents_.dispatch(Platform::AppleEvent::getURL(std::move(*launch->url)));
    launches.finish();
  }
}

void Application::awaitLaunch() {
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  const Ticks ticks;
  while (!wasLaunched_ && !isTerminating_ && std::chrono::steady_clock::now() < deadline)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  if (!wasLaunched_)
    terminate();
}

void Application::run() {
  if (!isTerminating_)
    notifications_.post({Platform::applicationDidFinishLaunchingNotification, this});
  while (!isTerminating_)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

void Application::postWillTerminate() {
  if (std::exchange(hasPostedWillTerminate_, true))
    return;
  notifications_.post({Platform::applicationWillTerminateNotification, this});
}

}  // namespace Linux
