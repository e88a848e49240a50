#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/System/ProgramOptions.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// Reads the options of a program that takes --fast, -n or --number with any value but "no", and other arguments except
// "bad".
class ProgramOptions : public testing::Test {
 protected:
  std::expected<std::optional<std::string>, std::string> read(const std::vector<std::string_view>& arguments) {
    const auto addNumber = [this](std::string_view number) {
      numbers_.emplace_back(number);
      return number != "no";
    };
    const auto addOther = [this](std::string_view other) {
      others_.emplace_back(other);
      return other != "bad";
    };
    return DesktopSupport::readOptions("program", "Does things.",
                                       {{.name = "fast", .help = "go fast", .flag = &isFast_},
                                        {.name = "number", .letter = 'n', .value = "N", .take = addNumber},
                                        {.value = "[THING]...", .take = addOther}},
                                       arguments);
  }

  std::string errorFor(const std::vector<std::string_view>& arguments) {
    const auto help = read(arguments);
    return help ? "none" : help.error();
  }

  bool isFast_ = false;
  std::vector<std::string> numbers_;
  std::vector<std::string> others_;
};

TEST_F(ProgramOptions, NeedNotBeGiven) {
  EXPECT_EQ(read({}), std::nullopt);
  EXPECT_FALSE(isFast_);
  EXPECT_TRUE(numbers_.empty() && others_.empty());
}

TEST_F(ProgramOptions, AreTakenInAnyOrder) {
  EXPECT_EQ(read({"a", "--number", "1", "-", "--fast", "-n", "2", "--number=3", ""}), std::nullopt);
  EXPECT_TRUE(isFast_);
  EXPECT_THAT(numbers_, ElementsAre("1", "2", "3"));
  EXPECT_THAT(others_, ElementsAre("a", "-", ""));
}

TEST_F(ProgramOptions, EndAtTwoDashes) {
  EXPECT_EQ(read({"--", "--fast", "--"}), std::nullopt);
  EXPECT_FALSE(isFast_);
  EXPECT_THAT(others_, ElementsAre("--fast", "--"));
}

TEST_F(ProgramOptions, MayHaveAnyBytesAsValues) {
  EXPECT_EQ(read({"-n", "--fast", "-n", "\xFF", "-n", "", "\xFF"}), std::nullopt);
  EXPECT_FALSE(isFast_);
  EXPECT_THAT(numbers_, ElementsAre("--fast", "\xFF", ""));
  EXPECT_THAT(others_, ElementsAre("\xFF"));
}

TEST_F(ProgramOptions, SayWhatIsWrong) {
  EXPECT_EQ(errorFor({"--slow"}), "Unknown option --slow");
  EXPECT_EQ(errorFor({"-n"}), "Missing argument for -n");
  EXPECT_EQ(errorFor({"--number", "no"}), "Invalid value \"no\" for --number");
  EXPECT_EQ(errorFor({"-n", "no"}), "Invalid value \"no\" for -n");
  EXPECT_EQ(errorFor({"bad"}), "Unexpected argument bad");
}

TEST_F(ProgramOptions, SayThatThereAreNoOtherArguments) {
  const auto help = DesktopSupport::readOptions("program", "", {}, std::vector<std::string_view>{"thing"});
  ASSERT_FALSE(help);
  EXPECT_EQ(help.error(), "Unexpected argument thing");
}

TEST_F(ProgramOptions, AreExplainedByTheHelp) {
  const auto help = read({"--help"});
  ASSERT_TRUE(help && *help);
  EXPECT_THAT(**help, HasSubstr("[THING]..."));
  EXPECT_THAT(**help, HasSubstr("Does things."));
  EXPECT_THAT(**help, HasSubstr("--fast"));
  EXPECT_THAT(**help, HasSubstr("-n, --number=N"));
  EXPECT_THAT(**help, HasSubstr("--help"));
}

}  // namespace
