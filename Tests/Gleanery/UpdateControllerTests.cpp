#include <type_traits>

#include <gtest/gtest.h>

#include "Gleanery/UpdateController.h"
#include "Platform/Fake/FakeServices.h"

using Gleanery::UpdateController;

namespace {

static_assert(!std::is_copy_constructible_v<UpdateController> && !std::is_copy_assignable_v<UpdateController>);

// A process has only one controller, so each of these has a process of its own.
TEST(UpdateControllerDeathTest, HoldsThePlatformsUpdater) {
  EXPECT_EXIT(
      {
        Platform::Fake::FakeServices desktop;
        const bool holds = &UpdateController::shared().updater == desktop.services.updater &&
                           &UpdateController::shared() == &UpdateController::shared() && desktop.updater.checks == 0;
        std::exit(holds ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

TEST(UpdateControllerDeathTest, StopsTheProcessIfThereIsNoUpdater) {
  EXPECT_DEATH(
      {
        Platform::Fake::FakeServices desktop;
        desktop.services.updater = nullptr;
        UpdateController::shared();
      },
      "Fatal error: There is no updater.: file .*UpdateController.cpp, line");
}

}  // namespace
