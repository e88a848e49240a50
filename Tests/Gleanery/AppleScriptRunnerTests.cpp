#include <type_traits>

#include <gmock/gmock.h>

#include "Gleanery/Providers/AppleScriptRunner.h"
#include "Platform/Fake/FakeServices.h"

using Gleanery::AppleScriptRunner;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

static_assert(!std::is_copy_constructible_v<AppleScriptRunner> && !std::is_copy_assignable_v<AppleScriptRunner>);

class AppleScriptRunnerTest : public testing::Test {
 protected:
  Platform::Fake::FakeServices desktop;
  AppleScriptRunner runner;
};

TEST_F(AppleScriptRunnerTest, YieldsTheText) {
  desktop.scripts.answerText("Café\n/a\n");
  EXPECT_EQ(runner.run("the source"), "Café\n/a\n");
  EXPECT_THAT(desktop.scripts.sources, ElementsAre("the source"));
  EXPECT_THAT(desktop.log.messages, IsEmpty());
}

TEST_F(AppleScriptRunnerTest, RunsAnEmptySourceLikeAnyOther) {
  desktop.scripts.answerText("text");
  EXPECT_EQ(runner.run(""), "text");
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(""));
}

TEST_F(AppleScriptRunnerTest, LogsAScriptThatCannotBeMade) {
  desktop.scripts.refuse();
  EXPECT_EQ(runner.run("x"), "");
  EXPECT_THAT(desktop.log.messages, ElementsAre("data decoding error"));
}

TEST_F(AppleScriptRunnerTest, LogsTheErrorInformationAsAnOptional) {
  desktop.scripts.answer = [](std::string_view) {
    return Platform::ScriptOutcome{.error = Platform::ScriptErrorInformation{.number = -600,
                                                                             .message = "Application isn’t running.",
                                                                             .rangeStart = 4,
                                                                             .rangeLength = 27,
                                                                             .applicationName = "System Events"}};
  };
  EXPECT_EQ(runner.run("x"), "");
  EXPECT_THAT(desktop.log.messages, ElementsAre("error: Optional({\n"
                                                "    NSAppleScriptErrorAppName = \"System Events\";\n"
                                                "    NSAppleScriptErrorMessage = \"Application isn’t running.\";\n"
                                                "    NSAppleScriptErrorNumber = \"-600\";\n"
                                                "    NSAppleScriptErrorRange = \"NSRange: {4, 27}\";\n"
                                                "})"));
}

TEST_F(AppleScriptRunnerTest, LogsAScriptWithoutAResultOrWithoutText) {
  desktop.scripts.answerNothing();
  EXPECT_EQ(runner.run("x"), "");
  desktop.scripts.answerWithoutText();
  EXPECT_EQ(runner.run("x"), "");
  EXPECT_THAT(desktop.log.messages, ElementsAre("data decoding error", "data decoding error"));
}

TEST_F(AppleScriptRunnerTest, LogsATextThatIsNoUnicode) {
  desktop.scripts.answerText("a\xFF");
  EXPECT_EQ(runner.run("x"), "");
  EXPECT_THAT(desktop.log.messages, ElementsAre("data decoding error"));
}

}  // namespace
