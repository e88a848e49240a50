#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Script.h"
#include "AppleScript/Values/SourceForm.h"
#include "Tests/AppleScript/TestApplications.h"

namespace AppleScript::Testing {
namespace {

TEST(Script, CompilingAsksNoApplicationAnything) {
  TestApplications applications;
  ASSERT_TRUE(Script::compile("tell application \"Test Desk\" to get name of every window", applications));
  EXPECT_EQ(applications.desk().timesOpened(), 0);
}

TEST(Script, AsksAnApplicationOnceInARun) {
  TestApplications applications;
  const auto script = Script::compile(
      "tell application \"Test Desk\"\nset n to number of windows\nend tell\n"
      "tell application \"Test Desk\" to get name of tab 1 of window n",
      applications);
  ASSERT_TRUE(script);
  ASSERT_TRUE(script->run());
  EXPECT_EQ(applications.desk().timesOpened(), 1);
  ASSERT_TRUE(script->run());
  EXPECT_EQ(applications.desk().timesOpened(), 2);
}

TEST(Script, DoesNotAskAnApplicationThatIsOnlyAddressed) {
  TestApplications applications;
  ASSERT_TRUE(applications.run("tell application \"Test Desk\"\nset x to 1\nname\nend tell"));
  EXPECT_EQ(applications.desk().timesOpened(), 0);
}

TEST(Script, EachRunStartsAfresh) {
  TestApplications applications;
  const auto script = Script::compile("set l to {}\nset end of l to 1\nset t to \"a\" & \"b\"\nl & t", applications);
  ASSERT_TRUE(script);
  for (int i = 0; i < 2; ++i) {
    const auto result = script->run();
    ASSERT_TRUE(result && *result);
    EXPECT_EQ(sourceForm(**result), "{1, \"ab\"}");
  }
}

TEST(Script, ValuesOutliveTheScript) {
  TestApplications applications;
  std::optional<Value> value;
  {
    const auto script =
        Script::compile("tell application \"Test Desk\" to get properties of every process", applications);
    ASSERT_TRUE(script);
    value = *script->run();
  }
  ASSERT_TRUE(value);
  EXPECT_EQ(value->getIf<List>()->at(2).getIf<Record>()->find("name")->stringValue(), "editor");
}

TEST(Script, CanBeMoved) {
  TestApplications applications;
  auto script = Script::compile("1 + 1", applications);
  ASSERT_TRUE(script);
  const Script moved = *std::move(script);
  EXPECT_EQ(moved.run()->value().stringValue(), "2");
}

TEST(Script, AnEmptySourceHasNoValue) {
  TestApplications applications;
  EXPECT_EQ(applications.run("")->has_value(), false);
}

TEST(Script, RefusesASourceThatIsNotUTF8) {
  TestApplications applications;
  const auto result = applications.run("\"\xff\"");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::syntaxError);
}

TEST(Script, LinesMayEndAnyWay) {
  for (const std::string end : {"\n", "\r", "\r\n"}) {
    TestApplications applications;
    const auto result = applications.run("set x to 1" + end + "repeat 2 times" + end + "set x to x + 1" + end +
                                         "end repeat" + end + "x" + end);
    ASSERT_TRUE(result && *result);
    EXPECT_EQ((*result)->stringValue(), "3");
  }
}

TEST(Script, TextWithAnUnescapedQuoteIsRefusedBeforeAnythingRuns) {
  TestApplications applications;
  const auto result = applications.run("    tell application \"Deskloom\" to get config \"a\"b\"");
  ASSERT_FALSE(result);
  EXPECT_EQ(result.error().number, ErrorNumber::syntaxError);
  EXPECT_TRUE(applications.host().log().empty());
}

TEST(Script, ConfigurationsReachTheHostUnescaped) {
  TestApplications applications;
  ASSERT_TRUE(applications.run(R"(    tell application "Deskloom" to set config "{\"k\":\"a\\\"b\"}" action "7F3A")"));
  EXPECT_EQ(applications.host().log(), std::vector<std::string>{R"(config({"k":"a\"b"}, 7F3A))"});
}

TEST(Script, EveryHostCommandIsUnderstood) {
  TestApplications applications;
  for (const char* command : {"get global config \"B\"", "set global config \"T\" action bundle id \"B\"",
                              "get config \"A\"", "set config \"T\" action \"A\"", "get plugin folder path",
                              "get path of plugin \"N\"", "get is plugin installed at path \"P\"", "install plugin"}) {
    EXPECT_TRUE(applications.run("    tell application \"Deskloom\" to " + std::string(command))) << command;
  }
  EXPECT_EQ(applications.host().log(),
            (std::vector<std::string>{"global config(B)", "global config(T, B)", "config(A)", "config(T, A)", "folder",
                                      "path(N)", "is installed", "install"}));
}

TEST(Script, BooleanRepliesAreWords) {
  TestApplications applications;
  const auto reply = applications.run("tell application \"Deskloom\" to get is plugin installed at path \"/there\"");
  ASSERT_TRUE(reply && *reply);
  EXPECT_EQ((*reply)->stringValue(), "true");
}

}  // namespace
}  // namespace AppleScript::Testing
