#include <type_traits>

#include <gmock/gmock.h>

#include "DeskloomSDK/Host/AppleScriptRunner.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::AppleScriptRunner;
using testing::ElementsAre;

namespace {

static_assert(!std::is_copy_constructible_v<AppleScriptRunner> && !std::is_copy_assignable_v<AppleScriptRunner>);

class SDKAppleScriptRunnerTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
};

TEST_F(SDKAppleScriptRunnerTest, YieldsTheTextUnchanged) {
  desktop.scripts.answerText("  text \n");
  const auto result = AppleScriptRunner::run("the source");
  ASSERT_TRUE(result);
  EXPECT_EQ(*result, "  text \n");
  EXPECT_THAT(desktop.scripts.sources, ElementsAre("the source"));
}

TEST_F(SDKAppleScriptRunnerTest, YieldsNothingIfTheScriptYieldsNoText) {
  desktop.scripts.answerNothing();
  EXPECT_EQ(AppleScriptRunner::run("").value(), std::nullopt);
  desktop.scripts.answerWithoutText();
  EXPECT_EQ(AppleScriptRunner::run("").value(), std::nullopt);
}

TEST_F(SDKAppleScriptRunnerTest, RunsAnEmptySourceLikeAnyOther) {
  desktop.scripts.answerText("text");
  EXPECT_EQ(AppleScriptRunner::run("").value(), "text");
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(""));
  desktop.scripts.fail(-600, "");
  EXPECT_FALSE(AppleScriptRunner::run(""));
}

TEST_F(SDKAppleScriptRunnerTest, YieldsNothingForASourceThatCannotBeLoaded) {
  desktop.scripts.refuse();
  EXPECT_EQ(AppleScriptRunner::run("\xFF").value(), std::nullopt);
}

TEST_F(SDKAppleScriptRunnerTest, ReportsEveryFailureWithTheSameTexts) {
  desktop.scripts.fail(-1728, "Can't get window 1.");
  const auto result = AppleScriptRunner::run("x");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().domain(), "com.quillary.DeskloomSDK");
  EXPECT_EQ(result.error().code(), 1);
  EXPECT_EQ(result.error().localizedDescription(), "Could not run script");
  EXPECT_EQ(result.error().localizedFailureReason(),
            "It looks like you haven't got Deskloom 2 app or you didn't allow to communicate the plugin (this app) via "
            "Apple Script");
  EXPECT_EQ(result.error().userInfo().size(), 2U);
  EXPECT_EQ(desktop.strings.comments["Could not run script"], "Error");
  EXPECT_EQ(desktop.strings.comments[result.error().localizedFailureReason()], "No Deskloom 2 or disallowed.");
}

TEST_F(SDKAppleScriptRunnerTest, FailsEvenIfThereIsAResult) {
  desktop.scripts.answer = [](std::string_view) {
    return Platform::ScriptOutcome{.error = Platform::ScriptErrorInformation{.number = -2700, .message = "no"},
                                   .result = Platform::ScriptOutcome::Result{"text"}};
  };
  EXPECT_FALSE(AppleScriptRunner::run("x"));
}

TEST_F(SDKAppleScriptRunnerTest, LooksTheTextsUpAnewEachTime) {
  desktop.scripts.fail(-600, "");
  EXPECT_EQ(AppleScriptRunner::run("x").error().localizedDescription(), "Could not run script");
  desktop.strings.translations["Could not run script"] = "Skript lief nicht";
  EXPECT_EQ(AppleScriptRunner::run("x").error().localizedDescription(), "Skript lief nicht");
}

TEST_F(SDKAppleScriptRunnerTest, LogsNothingAndShowsNothing) {
  desktop.scripts.fail(-600, "");
  static_cast<void>(AppleScriptRunner::run("x"));
  EXPECT_TRUE(desktop.log.messages.empty());
  EXPECT_TRUE(desktop.alerts.shown.empty());
}

}  // namespace
