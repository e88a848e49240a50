// The program as a user runs it.

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

/// The exit status, and what was printed.
using Outcome = std::pair<int, std::string>;

// Runs the program with these arguments and without an X server.
Outcome applescript(std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), APPLESCRIPT_PROGRAM);
  TestSupport::ChildProcess process(arguments, {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
  std::string output = process.readAll();
  return {process.wait(), std::move(output)};
}

TEST(AppleScriptTool, PrintsWhatTheScriptYields) {
  EXPECT_EQ(applescript({"-e", "set x to 20", "-e", "x + 1"}), (Outcome{0, "21\n"}));
  EXPECT_EQ(applescript({"-e", "\"a\" & linefeed & \"b\""}), (Outcome{0, "a\nb\n"}));
  EXPECT_EQ(applescript({"-e", "{1, \"two\", {three:true}, missing value}"}),
            (Outcome{0, "{1, \"two\", {three:true}, missing value}\n"}));
  EXPECT_EQ(applescript({"-e", "-- nothing"}), (Outcome{0, ""}));
}

TEST(AppleScriptTool, RunsAFile) {
  const TestSupport::TemporaryFolder folder;
  EXPECT_EQ(applescript({folder.write("script", "6 * 7\n")}), (Outcome{0, "42\n"}));
  const std::string absent = folder.path() / "absent";
  EXPECT_EQ(applescript({absent}), (Outcome{1, "applescript: " + absent + " cannot be read\n"}));
}

TEST(AppleScriptTool, RunsWhatItIsGivenToRead) {
  TestSupport::ChildProcess shell({"sh", "-c", "echo '6 * 7' | " APPLESCRIPT_PROGRAM});
  EXPECT_EQ(shell.readAll(), "42\n");
  EXPECT_EQ(shell.wait(), 0);
}

TEST(AppleScriptTool, TellsAnErrorWithItsPlaceAndNumber) {
  EXPECT_EQ(applescript({"-e", "set x to"}).first, 1);
  EXPECT_EQ(applescript({"-e", "1", "-e", "item 3 of {1}"}),
            (Outcome{1, "applescript: 2:15: execution error: Can’t get item 3 of {1}. (-1728)\n"}));
  EXPECT_EQ(applescript({"-e", "\xFF"}), (Outcome{1, "applescript: the script is not UTF-8\n"}));
}

TEST(AppleScriptTool, TellsAnErrorInOneLineThatDoesNothingToATerminal) {
  EXPECT_EQ(applescript({"-e", "error \"a\x1b[2J\" & linefeed & \"b\u202E\""}),
            (Outcome{1, "applescript: 0:31: execution error: a[2J b\\u{202E} (-2700)\n"}));
  EXPECT_EQ(applescript({"--\x1b[2J\n"}), (Outcome{2, "applescript: Unknown option --[2J  (see --help)\n"}));
}

// What the program prints on a terminal for an expression.
std::string onTerminal(const std::string& expression) {
  TestSupport::ChildProcess process(
      {"script", "--quiet", "--command", "exec " APPLESCRIPT_PROGRAM " -e '" + expression + "'", "/dev/null"});
  std::string output = process.readAll();
  EXPECT_EQ(process.wait(), 0);
  return output;
}

TEST(AppleScriptTool, PrintsNothingThatATerminalObeys) {
  const std::string expression = "\"a\x1b[2J\" & linefeed & \"b\u202E\"";
  EXPECT_EQ(onTerminal(expression), "a[2J\r\nb\\u{202E}\r\n");
  EXPECT_EQ(applescript({"-e", expression}), (Outcome{0, "a\x1b[2J\nb\u202E\n"})) << "unchanged for a program";
}

TEST(AppleScriptTool, TellsThatAnApplicationDoesNotRun) {
  const Outcome outcome = applescript({"-e", "tell application \"System Events\" to count processes"});
  EXPECT_EQ(outcome.first, 1);
  EXPECT_TRUE(outcome.second.ends_with("(-600)\n")) << outcome.second;
}

TEST(AppleScriptTool, SaysWhatItTakes) {
  EXPECT_EQ(applescript({"--fast"}), (Outcome{2, "applescript: Unknown option --fast (see --help)\n"}));
  EXPECT_EQ(applescript({"--help"}).second.substr(0, 20), "Usage:\n  applescript");
  EXPECT_EQ(applescript({"--version"}).second.substr(0, 12), "applescript ");
}

}  // namespace
