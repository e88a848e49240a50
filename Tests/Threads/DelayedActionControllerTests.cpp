// Delayed actions with real threads and real seconds. Everything in this program is built with the thread sanitizer.

#include <chrono>
#include <memory>
#include <optional>
#include <random>
#include <vector>

#include <glib.h>
#include <gtest/gtest.h>

#include "DeskloomSDK/Configuration/DelayedActionController.h"
#include "Linux/Queues.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::DelayedActionController;

namespace {

using Clock = std::chrono::steady_clock;

/// A desktop of fakes, except for the queues and the clock.
class DelayedActionControllerTest : public testing::Test {
 protected:
  template <typename Condition>
  static void runMainUntil(Condition condition) {
    while (!condition())
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }

  Platform::Fake::FakeServices fakes;
  Linux::Clock clock;
  Linux::Application application{fakes.appleEvents, fakes.notifications};
  Linux::Queues queues{application};
  Platform::Services services{
      &fakes.application, fakes.appleEvents, fakes.notifications, fakes.scripts, fakes.workspace, fakes.alerts,
      fakes.windows,      fakes.bundle,      fakes.strings,       fakes.log,     queues,          clock,
      &fakes.updater};
  Platform::ServicesInstallation installation{services};
};

TEST_F(DelayedActionControllerTest, RunsTheActionOnTheMainThreadNoSoonerThanASecondLater) {
  std::optional<Clock::time_point> run;
  DelayedActionController controller(1.0, std::nullopt, [&] {
    EXPECT_TRUE(queues.isMainThread());
    run = Clock::now();
  });
  const auto request = Clock::now();
  controller.perform();
  EXPECT_FALSE(run);
  runMainUntil([&] { return run.has_value(); });
  EXPECT_GE(*run - request, std::chrono::seconds(1));
}

TEST_F(DelayedActionControllerTest, RequestsAndReleasesMayComeInAnyOrder) {
  constexpr std::size_t controllers = 8;
  constexpr int steps = 200;
  std::mt19937 random;
  std::vector<std::unique_ptr<DelayedActionController>> all(controllers);
  int runs = 0;
  const auto make = [&] {
    return std::make_unique<DelayedActionController>(1.0, std::nullopt,
                                                     [&runs, held = std::make_shared<int>(1)] { runs += *held; });
  };
  for (int step = 0; step < steps; ++step) {
    auto& controller = all[random() % controllers];
    if (!controller)
      controller = make();
    else if (random() % 4 == 0)
      controller.reset();
    if (controller)
      controller->perform();
    g_main_context_iteration(nullptr, FALSE);
  }
  // Released before their checks come: their actions never run.
  for (std::size_t index = 0; index < controllers; index += 2)
    all[index].reset();
  auto last = make();
  last->perform();
  const auto expected = 1 + std::ranges::count_if(all, [](const auto& controller) { return controller != nullptr; });
  runMainUntil([&] { return runs >= expected; });
}

}  // namespace
