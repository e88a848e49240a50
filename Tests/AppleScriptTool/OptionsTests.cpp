#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScriptTool/Options.h"

namespace {

using AppleScriptTool::Options;

std::string errorOf(const std::vector<std::string_view>& arguments) {
  const auto options = Options::parse(arguments);
  return options ? "none" : options.error();
}

TEST(AppleScriptToolOptions, TakeAScriptLineByLine) {
  const auto options = Options::parse(std::vector<std::string_view>{"-e", "set x to 1", "-e", "x"});
  EXPECT_EQ(options.value().script, "set x to 1\nx\n");
}

TEST(AppleScriptToolOptions, TakeALineThatLooksLikeAnOption) {
  EXPECT_EQ(Options::parse(std::vector<std::string_view>{"-e", "-e"}).value().script, "-e\n");
}

TEST(AppleScriptToolOptions, TakeAnyBytesAndAnEmptyLine) {
  EXPECT_EQ(Options::parse(std::vector<std::string_view>{"-e", "\xFF", "-e", ""}).value().script, "\xFF\n\n");
}

TEST(AppleScriptToolOptions, TakeAFile) {
  EXPECT_EQ(Options::parse(std::vector<std::string_view>{"tabs.applescript"}).value().file, "tabs.applescript");
}

TEST(AppleScriptToolOptions, ReadStandardInputIfNothingIsNamed) {
  for (const std::vector<std::string_view>& arguments : {std::vector<std::string_view>{}, {"-"}}) {
    const auto options = Options::parse(arguments);
    EXPECT_FALSE(options.value().script);
    EXPECT_FALSE(options.value().file);
  }
}

TEST(AppleScriptToolOptions, SayWhatIsWrong) {
  EXPECT_EQ(errorOf({"-e"}), "Missing argument for -e");
  EXPECT_EQ(errorOf({"--fast"}), "Unknown option --fast");
  EXPECT_EQ(errorOf({"a", "b"}), "Unexpected argument b");
  EXPECT_EQ(errorOf({"-e", "1", "-"}), "Give either -e or a file, not both");
}

TEST(AppleScriptToolOptions, AreAllInTheHelp) {
  const std::string help = Options::parse(std::vector<std::string_view>{"--help"}).value().help.value();
  for (const char* text : {"applescript [OPTION", "[FILE]", "-e, --line=LINE", "--help", "--version"})
    EXPECT_NE(help.find(text), std::string::npos) << text;
}

}  // namespace
