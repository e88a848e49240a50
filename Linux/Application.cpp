#include "Linux/Application.h"

#include <chrono>
#include <optional>
#include <utility>

#include <glib.h>

#include "Linux/MainContext.h"

namespace Linux {

namespace {

constexpr std::chrono::seconds longestWait{10};

}  // namespace

void Application::deliver(LaunchQueue& launches) {
  LaunchedApplication::deliver([&]() -> std::optional<LaunchedApplication::Launch> {
    auto launch = launches.begin();
    if (!launch)
      return std::nullopt;
    wasLaunched_ = true;
    return {{.url = std::move(launch->url), .finished = [&launches] { launches.finish(); }}};
  });
}

void Application::awaitLaunch() {
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  runMainContextUntil([&] { return wasLaunched_ || isTerminating() || std::chrono::steady_clock::now() >= deadline; });
  if (!wasLaunched_)
    terminate();
}

void Application::run() {
  finishLaunching();
  while (!isTerminating())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
}

}  // namespace Linux
