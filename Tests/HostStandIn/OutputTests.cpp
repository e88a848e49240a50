#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "HostStandIn/Output.h"

namespace {

using HostStandIn::Output;

class HostOutput : public testing::Test {
 protected:
  void TearDown() override { std::filesystem::remove(log_); }

  std::string logged() const {
    std::ifstream file(log_);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::filesystem::path log_ =
      testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".log";
  std::ostringstream lines_;
  std::ostringstream notes_;
};

TEST_F(HostOutput, IsALineForEachURL) {
  Output output(Output::Format::url, lines_, notes_);
  output.printURL("deskloom://gleanery/%5B%5D");
  output.printURL("deskloom://b");
  output.printLine("install plugin");
  EXPECT_EQ(lines_.str(), "deskloom://gleanery/%5B%5D\ndeskloom://b\ninstall plugin\n");
  EXPECT_EQ(notes_.str(), "");
}

TEST_F(HostOutput, DoesNothingToATerminal) {
  Output output(Output::Format::table, lines_, notes_);
  ASSERT_TRUE(output.logTo(log_));
  output.printLine("a\nb\x1b[2J\u202Ec");
  EXPECT_EQ(lines_.str(), "a b[2J\\u{202E}c\n");
  EXPECT_EQ(logged(), lines_.str());
}

TEST_F(HostOutput, IsATableIfAskedFor) {
  Output output(Output::Format::table, lines_, notes_);
  output.printURL("deskloom://gleanery/%5B%5D");
  EXPECT_EQ(lines_.str(), "(no resources)\n");
}

TEST_F(HostOutput, ShowsWhatIsNoTableAsItCameAndSaysSo) {
  Output output(Output::Format::table, lines_, notes_);
  output.printURL("deskloom://gleanery/%5");
  EXPECT_EQ(lines_.str(), "deskloom://gleanery/%5\n");
  EXPECT_EQ(notes_.str(), "deskloom-host: shown unchanged: the payload is not a list of resources\n");
}

TEST_F(HostOutput, IsAppendedToTheLogAsItCame) {
  std::ofstream(log_) << "before\n";
  Output output(Output::Format::table, lines_, notes_);
  ASSERT_TRUE(output.logTo(log_));
  output.printURL("deskloom://gleanery/%5B%5D");
  EXPECT_EQ(logged(), "before\ndeskloom://gleanery/%5B%5D\n");
  EXPECT_EQ(lines_.str(), "(no resources)\n");
}

TEST_F(HostOutput, NeedsALogThatCanBeOpened) {
  Output output(Output::Format::url, lines_, notes_);
  const auto opened = output.logTo("/nowhere/at/all");
  ASSERT_FALSE(opened);
  EXPECT_EQ(opened.error(), "cannot write to /nowhere/at/all");
}

TEST_F(HostOutput, SaysThatALineIsLost) {
  std::ofstream full("/dev/full");
  Output output(Output::Format::url, full, notes_);
  output.printURL("deskloom://a");
  EXPECT_EQ(notes_.str(), "deskloom-host: a line could not be written\n");
}

}  // namespace
