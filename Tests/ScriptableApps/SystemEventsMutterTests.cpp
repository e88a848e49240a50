#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "AppleScript/Values/ScriptError.h"
#include "ScriptableApps/SystemEvents/SystemEvents.h"

namespace {

TEST(SystemEventsOnMutter, FailsAndNamesTheCompositor) {
  ScriptableApps::SystemEvents systemEvents;
  const auto root = systemEvents.open();
  ASSERT_FALSE(root);
  EXPECT_EQ(root.error().number, AppleScript::ErrorNumber::notRunning);
  EXPECT_THAT(root.error().message, testing::HasSubstr("mutter does not tell other programs about its windows"));
  EXPECT_THAT(root.error().message, testing::HasSubstr("zwlr_foreign_toplevel_manager_v1"));
}

}  // namespace
