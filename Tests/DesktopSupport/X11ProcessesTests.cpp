#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/Windows/X11/X11Processes.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace std::string_literals;
using DesktopSupport::localProcess;

// One process, with the number 7, of this user.
class WindowProcess : public testing::Test {
 protected:
  WindowProcess() {
    setStatus(std::to_string(getuid()), "7");
    setDisplay(":5.0");
  }

  void setStatus(const std::string& user, const std::string& numbers) {
    folder_.write("7/status", "Name:\ttool\nUid:\t" + user + "\t1\t2\t3\nNSpid:\t" + numbers + "\nThreads:\t1\n");
  }
  void setDisplay(const std::string& display) { folder_.write("7/environ", "A=1\0DISPLAY="s + display + '\0'); }

  std::optional<pid_t> saidByWindow(std::uint32_t pid, const std::string& machine, const std::string& host = "desk") {
    return localProcess({.ofServer = std::nullopt, .ofWindow = pid, .machine = machine}, host, folder_.path());
  }

  TestSupport::TemporaryFolder folder_;
  TestSupport::EnvironmentVariable display_{"DISPLAY", ":5"};
};

TEST_F(WindowProcess, IsTheOneThatTheServerKnows) {
  EXPECT_EQ(localProcess({.ofServer = 5, .ofWindow = 7, .machine = "desk"}, "desk"), 5);
  EXPECT_EQ(localProcess({.ofServer = 5, .ofWindow = std::nullopt, .machine = ""}, "desk"), 5);
}

TEST_F(WindowProcess, IsNoneThatAServerInAnotherNamespaceKnows) {
  const auto process = [&](pid_t ofServer, std::optional<std::uint32_t> ofWindow) {
    return localProcess({.ofServer = ofServer, .ofWindow = ofWindow, .machine = "desk", .isServerForeign = true},
                        "desk", folder_.path());
  };
  EXPECT_EQ(process(7, std::nullopt), std::nullopt);
  EXPECT_EQ(process(7, 7), std::nullopt) << "the program is in the server's namespace";
  EXPECT_EQ(process(5000, 7), 7) << "it may be in this one";
  EXPECT_EQ(process(5000, 8), std::nullopt);
}

TEST_F(WindowProcess, IsTheOneThatTheWindowTellsForThisMachine) {
  EXPECT_EQ(saidByWindow(7, "desk"), 7);
}

TEST_F(WindowProcess, IsNoneIfTheWindowIsOfAnotherMachine) {
  EXPECT_EQ(saidByWindow(7, "server"), std::nullopt);
  EXPECT_EQ(saidByWindow(7, ""), std::nullopt) << "nobody knows of which";
  EXPECT_EQ(saidByWindow(7, "", ""), std::nullopt);
}

TEST_F(WindowProcess, KnowsThisMachineWithItsDomainOrWithout) {
  EXPECT_EQ(saidByWindow(7, "desk.example.org"), 7);
  EXPECT_EQ(saidByWindow(7, "desk", "desk.example.org"), 7);
  EXPECT_EQ(saidByWindow(7, "desk.example.com", "desk.example.org"), std::nullopt);
}

TEST_F(WindowProcess, IsNoneIfTheNumberIsNoProcess) {
  EXPECT_EQ(saidByWindow(0, "desk"), std::nullopt);
  EXPECT_EQ(saidByWindow(std::numeric_limits<std::uint32_t>::max(), "desk"), std::nullopt);
  EXPECT_EQ(saidByWindow(8, "desk"), std::nullopt) << "there is none";
}

TEST_F(WindowProcess, IsNoneIfThatWithTheNumberIsInAnotherNamespace) {
  setStatus(std::to_string(getuid()), "7\t2");
  EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt);
  folder_.write("7/status", "Uid:\t" + std::to_string(getuid()) + '\n');
  EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt) << "the kernel does not tell";
}

TEST_F(WindowProcess, IsNoneIfThatWithTheNumberIsAnotherUsers) {
  setStatus(std::to_string(getuid() + 1), "7");
  EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt);
}

TEST_F(WindowProcess, IsNoneIfThatWithTheNumberWasNotStartedForTheDisplay) {
  for (const char* display : {":6", ":51", "far:5", "5", ""}) {
    setDisplay(display);
    EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt) << display;
  }
  setDisplay(":5.1");
  EXPECT_EQ(saidByWindow(7, "desk"), 7);
  folder_.write("7/environ", "");
  EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt);
}

TEST_F(WindowProcess, IsNoneIfTheDescriptionIsRubbish) {
  for (const std::string& status :
       {""s, "Uid:"s, "Uid:\tx\nNSpid:\ty\n"s, "Uid:\nNSpid:\n"s, std::string(5 << 20, 'U')}) {
    folder_.write("7/status", status);
    EXPECT_EQ(saidByWindow(7, "desk"), std::nullopt) << status.substr(0, 100);
  }
}

}  // namespace
