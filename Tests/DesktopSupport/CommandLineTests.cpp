#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "DesktopSupport/Processes/CommandLine.h"

namespace {

using DesktopSupport::CommandLine;
using DesktopSupport::isInterpreter;
using Words = std::vector<std::string>;

std::string program(const Words& arguments) {
  const auto command = CommandLine::from(arguments);
  return command ? command->program : "none";
}

std::string programOfExec(const std::string& exec) {
  const auto command = CommandLine::fromExec(exec);
  return command ? command->program : "none";
}

TEST(CommandLine, RunsItsFirstWord) {
  EXPECT_EQ(program({"/usr/bin/tool", "file"}), "tool");
  EXPECT_EQ(CommandLine::from({"tool", "a", "b"})->arguments, (Words{"a", "b"}));
}

TEST(CommandLine, RunsNothingWithoutWords) {
  EXPECT_EQ(program({}), "none");
  EXPECT_EQ(programOfExec(""), "none");
  EXPECT_EQ(programOfExec("   "), "none");
}

TEST(CommandLine, RunsWhatFollowsEnv) {
  EXPECT_EQ(program({"env", "A=1", "-u", "B=2", "tool"}), "tool");
  EXPECT_EQ(program({"/usr/bin/env", "python3", "/usr/bin/tool"}), "tool");
  EXPECT_EQ(program({"env", "A=1"}), "none");
}

TEST(CommandLine, RunsTheScriptOfAnInterpreter) {
  EXPECT_EQ(program({"/usr/bin/python3.11", "-u", "/usr/bin/tool", "file"}), "tool");
  EXPECT_EQ(program({"gjs", "-m", "/usr/share/app/org.example.App"}), "org.example.App");
  EXPECT_EQ(program({"java", "-jar", "/opt/app.jar"}), "app.jar");
}

TEST(CommandLine, RunsNothingIfAnInterpreterIsByItself) {
  EXPECT_EQ(program({"bash"}), "none");
  EXPECT_EQ(program({"python3", "-i"}), "none");
  EXPECT_EQ(program({"sh", "-c", "tool"}), "none");
  EXPECT_EQ(program({"perl", "-e", "1"}), "none");
}

TEST(CommandLine, RunsTheModuleOfAnInterpreter) {
  EXPECT_EQ(program({"python3", "-u", "-m", "tool", "file"}), "tool");
  EXPECT_EQ(program({"python3", "-um", "tool"}), "tool");
  EXPECT_EQ(program({"python3", "-m"}), "none");
  EXPECT_EQ(program({"python3", "-mtool", "file"}), "none");
}

TEST(CommandLine, OfAnEntryHasItsFixedArguments) {
  const auto command = CommandLine::fromExec(R"("/opt/my tool/run" --new 'a b' %U --class=%c 100%%)");
  ASSERT_TRUE(command);
  EXPECT_EQ(command->program, "run");
  EXPECT_EQ(command->arguments, (Words{"--new", "a b", "100%%"}));
}

TEST(CommandLine, OfAnEntryIsNoneIfItsQuotesAreNotClosed) {
  EXPECT_EQ(programOfExec("\"tool"), "none");
}

TEST(CommandLine, ContinuesOneWithFewerArguments) {
  const CommandLine longer{.program = "tool", .arguments = {"a", "b"}};
  EXPECT_TRUE(longer.continues({.program = "tool", .arguments = {}}));
  EXPECT_TRUE(longer.continues({.program = "tool", .arguments = {"a"}}));
  EXPECT_TRUE(longer.continues(longer));
  EXPECT_FALSE(longer.continues({.program = "tool", .arguments = {"b"}}));
  EXPECT_FALSE(longer.continues({.program = "tool", .arguments = {"a", "b", "c"}}));
  EXPECT_FALSE(longer.continues({.program = "other", .arguments = {}}));
}

TEST(CommandLine, KnowsInterpretersInAllVersions) {
  for (const char* name : {"python", "python3", "python3.11", "perl5.36", "ruby3.1", "wine64", "sh", "node"})
    EXPECT_TRUE(isInterpreter(name)) << name;
  for (const char* name : {"", "3", "xterm", "pythonista", "shotwell", "nodejs-manager"})
    EXPECT_FALSE(isInterpreter(name)) << name;
}

TEST(ScriptOf, IsTheFirstWordThatIsNeitherAnOptionNorItsArgument) {
  const std::vector<std::pair<std::string, Words>> commandLines = {
      {"python3.11", {"python3", "s", "x"}},
      {"python3.11", {"/usr/bin/python3", "-u", "-B", "s"}},
      {"python3.11", {"python3", "-W", "ignore", "s", "-m", "x"}},
      {"python3.11", {"python3", "-uX", "dev", "s"}},
      {"python3.11", {"python3", "-Wignore", "s", "x"}},
      {"python3.11", {"python3", "--check-hash-based-pycs=never", "s"}},
      {"perl", {"perl", "-w", "-I", "lib", "-MTk", "s"}},
      {"perl", {"perl", "-Ilime", "s"}},
      {"dash", {"sh", "-e", "-o", "pipefail", "s"}},
      {"ruby3.1", {"ruby", "-r", "gtk3", "s"}},
      {"java", {"java", "-Xmx1g", "-jar", "s", "x"}},
      {"gjs-console", {"gjs", "-m", "s"}},
      {"wish8.6", {"wish", "s", "-display", ":0"}},
  };
  for (const auto& [program, arguments] : commandLines)
    EXPECT_EQ(DesktopSupport::scriptOf(program, arguments), "s") << testing::PrintToString(arguments);
}

TEST(ScriptOf, IsNoneIfTheCommandLineNamesNoFile) {
  const std::vector<std::pair<std::string, Words>> commandLines = {
      {"python3", {}},
      {"python3", {"python3"}},
      {"python3", {"python3", "-i"}},
      {"python3", {"python3", "-m", "s", "x"}},
      {"python3", {"python3", "-um", "s"}},
      {"python3", {"python3", "-ms", "x"}},
      {"python3", {"python3", "-c", "s", "x"}},
      {"python3", {"python3", "-uc", "s"}},
      {"python3", {"python3", "-cs", "x"}},
      {"python3", {"python3", "-W", "ignore", "-m", "s"}},
      {"python3", {"python3", "-W"}},
      {"python3", {"python3", "-", "x"}},
      {"perl", {"perl", "-we", "s", "x"}},
      {"dash", {"sh", "-s", "x"}},
      {"bash", {"bash", "-lc", "s"}},
      {"node", {"node", "-p", "s"}},
      {"xterm", {"xterm", "s"}},
      {"tool", {"python3", "s"}},
  };
  for (const auto& [program, arguments] : commandLines)
    EXPECT_EQ(DesktopSupport::scriptOf(program, arguments), std::nullopt) << testing::PrintToString(arguments);
}

}  // namespace
