#include <gmock/gmock.h>

#include "Linux/Launching/LaunchArguments.h"

using Linux::LaunchArguments;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(LaunchArguments, TakeWhatIsNoOptionForLaunchURLs) {
  const auto arguments = LaunchArguments::parse({"a:b", "", "c", "\xFF"});
  ASSERT_TRUE(arguments);
  EXPECT_THAT(arguments->launchURLs, ElementsAre("a:b", "", "c", "\xFF"));
  EXPECT_FALSE(arguments->help || arguments->version || arguments->activatedByBus);
}

TEST(LaunchArguments, KnowTheirOptions) {
  EXPECT_TRUE(LaunchArguments::parse({"--help"})->help);
  EXPECT_TRUE(LaunchArguments::parse({"--version"})->version);
  EXPECT_TRUE(LaunchArguments::parse({"--dbus-activated"})->activatedByBus);
  EXPECT_TRUE(LaunchArguments::parse({"--read-launch-urls"})->readsLaunchURLs);
  EXPECT_THAT(LaunchArguments::parse({})->launchURLs, IsEmpty());
  EXPECT_FALSE(LaunchArguments::parse({})->readsLaunchURLs);
}

TEST(LaunchArguments, TakeEverythingBehindTwoDashesForLaunchURLs) {
  EXPECT_THAT(LaunchArguments::parse({"a:b", "--", "--help", "--"})->launchURLs, ElementsAre("a:b", "--help", "--"));
}

TEST(LaunchArguments, FailOverAnOptionThatThereIsNot) {
  EXPECT_EQ(LaunchArguments::parse({"--verbose"}).error(), "unknown option --verbose");
}
