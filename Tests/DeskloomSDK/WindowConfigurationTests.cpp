#include <type_traits>

#include <gtest/gtest.h>

#include "DeskloomSDK/WindowConfiguration.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::WindowConfiguration;

namespace {

static_assert(!std::is_copy_constructible_v<DeskloomSDK::WindowConfiguration> &&
              !std::is_copy_assignable_v<DeskloomSDK::WindowConfiguration>);

TEST(WindowConfiguration, PutsAWindowOnLevelFourWhateverItWasBefore) {
  Platform::Fake::FakeServices desktop;
  const auto window = desktop.windows.makeWindow({.title = "Window"});
  for (const int before : {0, 3, 4, 101, -1}) {
    window->setLevel(before);
    WindowConfiguration::configure(*window);
    EXPECT_EQ(window->level(), 4);
  }
  WindowConfiguration::configure(*window);
  EXPECT_EQ(window->level(), 4);
}

TEST(WindowConfiguration, ChangesNothingElse) {
  Platform::Fake::FakeServices desktop;
  const auto window = desktop.windows.makeWindow({.title = "Window"});
  WindowConfiguration::configure(*window);
  EXPECT_FALSE(desktop.windows.made[0]->isVisible);
  EXPECT_EQ(window->delegate(), nullptr);
}

}  // namespace
