#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/ProcessInfo.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::ProcessInfo;

class ProcessInfoTest : public testing::Test {
 protected:
  ProcessInfo process() { return ProcessInfo(7, folder_.path()); }

  void linkExecutable(const std::string& target) {
    std::filesystem::create_directories(folder_.path() / "7");
    std::filesystem::create_symlink(target, folder_.path() / "7/exe");
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(ProcessInfoTest, TellsTheRunningProgram) {
  const ProcessInfo self(getpid());
  EXPECT_EQ(self.executable(), std::filesystem::read_symlink("/proc/self/exe"));
  EXPECT_FALSE(self.arguments().empty());
  EXPECT_FALSE(self.controlGroups().empty());
}

TEST_F(ProcessInfoTest, TellsTheProgramThatWasReplaced) {
  linkExecutable("/usr/bin/tool (deleted)");
  EXPECT_EQ(process().executable(), "/usr/bin/tool");
}

TEST_F(ProcessInfoTest, HasNoProgramThatIsNoFile) {
  linkExecutable("anon_inode:x");
  EXPECT_EQ(process().executable(), std::nullopt);
}

TEST_F(ProcessInfoTest, SplitsTheCommandLine) {
  folder_.write("7/cmdline", "tool\0\0--a b\0"s);
  EXPECT_EQ(process().arguments(), (std::vector<std::string>{"tool", "", "--a b"}));
}

TEST_F(ProcessInfoTest, FindsVariables) {
  folder_.write("7/environ", "AB=1\0A=x=y\0C=\0rubbish\0"s);
  EXPECT_EQ(process().environment("A"), "x=y");
  EXPECT_EQ(process().environment("C"), "");
  EXPECT_EQ(process().environment("B"), std::nullopt);
  EXPECT_EQ(process().environment("rubbish"), std::nullopt);
}

TEST_F(ProcessInfoTest, FindsTheSandbox) {
  folder_.write("7/root/.flatpak-info", "[Instance]\nname=no\n[Application]\nname=org.example.App\n");
  EXPECT_EQ(process().flatpakId(), "org.example.App");
}

TEST_F(ProcessInfoTest, HasNothingWhereTheProcessIsGone) {
  EXPECT_EQ(process().executable(), std::nullopt);
  EXPECT_TRUE(process().arguments().empty());
  EXPECT_EQ(process().environment("A"), std::nullopt);
  EXPECT_EQ(process().controlGroups(), "");
  EXPECT_EQ(process().flatpakId(), std::nullopt);
}

TEST_F(ProcessInfoTest, HasNothingWhereTheProcessIsUnknown) {
  folder_.write("cmdline", "tool");
  folder_.write("cgroup", "0::/");
  const ProcessInfo unknown(std::nullopt, folder_.path());
  EXPECT_EQ(unknown.executable(), std::nullopt);
  EXPECT_TRUE(unknown.arguments().empty());
  EXPECT_EQ(unknown.controlGroups(), "");
}

}  // namespace
