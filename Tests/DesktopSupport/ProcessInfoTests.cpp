#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/Processes/ProcessInfo.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::ProcessInfo;

class ProcessInfoTest : public testing::Test {
 protected:
  ProcessInfo process() { return ProcessInfo(7, folder_.path()); }

  void link(const char* name, const std::string& target) {
    std::filesystem::create_directories(folder_.path() / "7");
    std::filesystem::create_symlink(target, folder_.path() / "7" / name);
  }
  void linkExecutable(const std::string& target) { link("exe", target); }

  /// The script of a Python process with this as its first argument.
  std::optional<std::filesystem::path> scriptOf(const std::string& argument) {
    if (!std::filesystem::is_symlink(folder_.path() / "7/exe"))
      linkExecutable("/usr/bin/python3.11");
    folder_.write("7/cmdline", "python3\0-u\0"s + argument + "\0more\0"s);
    return process().script();
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

TEST_F(ProcessInfoTest, TellsAProgramThatIsOnlyCalledDeleted) {
  const std::string program = folder_.write("tool (deleted)", "");
  linkExecutable(program);
  EXPECT_EQ(process().executable(), program);
}

TEST_F(ProcessInfoTest, TellsTheScript) {
  const std::string script = folder_.write("scripts/viewer.py", "");
  folder_.write("other/file", "");
  EXPECT_EQ(scriptOf(script), script);
  EXPECT_EQ(scriptOf(folder_.path() / "other/../scripts//viewer.py"), script);
  link("cwd", folder_.path() / "other");
  EXPECT_EQ(scriptOf("../scripts/./viewer.py"), script);
  EXPECT_EQ(scriptOf("file"), folder_.path() / "other/file");
}

TEST_F(ProcessInfoTest, KeepsTheNameOfAScriptThatIsALink) {
  std::filesystem::create_symlink(folder_.write("scripts/viewer.py", ""), folder_.path() / "viewer");
  std::filesystem::create_directory_symlink("scripts", folder_.path() / "link");
  EXPECT_EQ(scriptOf(folder_.path() / "viewer"), folder_.path() / "viewer");
  EXPECT_EQ(scriptOf(folder_.path() / "link/../viewer"), folder_.path() / "viewer");
  EXPECT_EQ(scriptOf(folder_.path() / "link/viewer.py"), folder_.path() / "scripts/viewer.py");
}

TEST_F(ProcessInfoTest, TellsNoScriptThatIsNoFile) {
  link("cwd", folder_.path());
  folder_.write("viewer.py", "");
  EXPECT_EQ(scriptOf("viewer.py"), folder_.path() / "viewer.py");
  for (const std::string& argument :
       {std::string(), std::string("."), std::string(".."), std::string("7"), std::string("/"),
        std::string("/dev/null"), std::string("removed.py"), folder_.path().string(), "/" + std::string(2 << 20, '/'),
        std::string(2 << 20, 'n')})
    EXPECT_EQ(scriptOf(argument), std::nullopt) << argument.substr(0, 100);
}

TEST_F(ProcessInfoTest, TellsNoScriptOfAnUnknownFolder) {
  const std::string file = std::filesystem::relative("/proc/self/comm");
  EXPECT_EQ(scriptOf(file), std::nullopt) << "it would be one in this process's folder";
  link("cwd", folder_.path() / "removed (deleted)");
  EXPECT_EQ(scriptOf("viewer.py"), std::nullopt);
}

TEST_F(ProcessInfoTest, TellsNoScriptOfAProgramThatIsNoInterpreter) {
  linkExecutable("/usr/bin/tool");
  EXPECT_EQ(scriptOf(folder_.write("viewer.py", "")), std::nullopt);
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
  EXPECT_EQ(process().flatpakID(), "org.example.App");
}

TEST_F(ProcessInfoTest, TellsItsLabel) {
  EXPECT_EQ(process().securityLabel(), "");
  folder_.write("7/attr/current", "one\n");
  EXPECT_EQ(process().securityLabel(), "one\n");
  folder_.write("7/attr/apparmor/current", "two\n");
  EXPECT_EQ(process().securityLabel(), "two\n") << "the other may be of another security module";
}

TEST_F(ProcessInfoTest, TellsWhetherItHasTheSameMounts) {
  EXPECT_EQ(ProcessInfo(getpid()).sharesMounts(), true);
  std::filesystem::create_directories(folder_.path() / "self/ns");
  std::filesystem::create_directories(folder_.path() / "7/ns");
  EXPECT_EQ(process().sharesMounts(), std::nullopt);
  link("ns/mnt", "mnt:[1]");
  EXPECT_EQ(process().sharesMounts(), std::nullopt) << "nothing to compare it with";
  std::filesystem::create_symlink("mnt:[2]", folder_.path() / "self/ns/mnt");
  EXPECT_EQ(process().sharesMounts(), false);
}

TEST_F(ProcessInfoTest, TellsWhetherItHasTheSameFile) {
  const std::string program = folder_.write("tool", "");
  EXPECT_TRUE(ProcessInfo(getpid()).sharesFile(program));
  EXPECT_FALSE(process().sharesFile(program));
  folder_.write("7/root" + program, "");
  EXPECT_FALSE(process().sharesFile(program));
  std::filesystem::remove_all(folder_.path() / "7/root");
  link("root", "/");
  EXPECT_TRUE(process().sharesFile(program));
  EXPECT_FALSE(process().sharesFile(folder_.path() / "missing"));
  EXPECT_FALSE(ProcessInfo(std::nullopt).sharesFile(program));
}

TEST_F(ProcessInfoTest, TellsWhetherItsOwnNumberIsItsNumberHere) {
  EXPECT_TRUE(ProcessInfo(getpid()).isOwnAndOutsideNamespaces());
  EXPECT_FALSE(process().isOwnAndOutsideNamespaces());
  EXPECT_EQ(DesktopSupport::ownProcessID(), getpid());
  EXPECT_EQ(DesktopSupport::ownProcessID(folder_.path()), std::nullopt);
  std::filesystem::create_symlink("42", folder_.path() / "self");
  EXPECT_EQ(DesktopSupport::ownProcessID(folder_.path()), 42);
}

TEST_F(ProcessInfoTest, HasNothingIfTheNumberIsNone) {
  folder_.write("0/cgroup", "0::/");
  folder_.write("-1/cgroup", "0::/");
  for (const pid_t pid : {0, -1}) {
    const ProcessInfo none(pid, folder_.path());
    EXPECT_EQ(none.pid(), std::nullopt);
    EXPECT_FALSE(none.exists());
    EXPECT_EQ(none.controlGroups(), "");
  }
  EXPECT_TRUE(ProcessInfo(getpid()).exists());
  EXPECT_FALSE(process().exists());
}

TEST_F(ProcessInfoTest, HasNothingIfTheProcessIsGone) {
  EXPECT_EQ(process().executable(), std::nullopt);
  EXPECT_EQ(process().script(), std::nullopt);
  EXPECT_TRUE(process().arguments().empty());
  EXPECT_EQ(process().environment("A"), std::nullopt);
  EXPECT_EQ(process().controlGroups(), "");
  EXPECT_EQ(process().flatpakID(), std::nullopt);
}

TEST_F(ProcessInfoTest, HasNothingIfTheProcessIsUnknown) {
  folder_.write("cmdline", "tool");
  folder_.write("cgroup", "0::/");
  const ProcessInfo unknown(std::nullopt, folder_.path());
  EXPECT_EQ(unknown.executable(), std::nullopt);
  EXPECT_TRUE(unknown.arguments().empty());
  EXPECT_EQ(unknown.controlGroups(), "");
}

}  // namespace
