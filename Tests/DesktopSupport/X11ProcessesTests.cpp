#include <limits>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/X11/X11Processes.h"

namespace {

using DesktopSupport::localProcess;

std::optional<pid_t> saidByWindow(std::uint32_t pid, const std::string& machine, const std::string& host = "desk") {
  return localProcess({.ofServer = std::nullopt, .ofWindow = pid, .machine = machine}, host);
}

TEST(WindowProcess, IsTheOneThatTheServerKnows) {
  EXPECT_EQ(localProcess({.ofServer = 5, .ofWindow = 7, .machine = "desk"}, "desk"), 5);
  EXPECT_EQ(localProcess({.ofServer = 5, .ofWindow = std::nullopt, .machine = ""}, "desk"), 5);
}

TEST(WindowProcess, IsTheOneThatTheWindowTellsForThisMachine) {
  EXPECT_EQ(saidByWindow(7, "desk"), 7);
}

TEST(WindowProcess, IsNoneIfTheWindowIsOfAnotherMachine) {
  EXPECT_EQ(saidByWindow(7, "server"), std::nullopt);
  EXPECT_EQ(saidByWindow(7, ""), std::nullopt) << "nobody knows of which";
  EXPECT_EQ(saidByWindow(7, "", ""), std::nullopt);
}

TEST(WindowProcess, KnowsThisMachineWithItsDomainOrWithout) {
  EXPECT_EQ(saidByWindow(7, "desk.example.org"), 7);
  EXPECT_EQ(saidByWindow(7, "desk", "desk.example.org"), 7);
  EXPECT_EQ(saidByWindow(7, "desk.example.com", "desk.example.org"), std::nullopt);
}

TEST(WindowProcess, IsNoneIfTheNumberIsNoProcess) {
  EXPECT_EQ(saidByWindow(0, "desk"), std::nullopt);
  EXPECT_EQ(saidByWindow(std::numeric_limits<std::uint32_t>::max(), "desk"), std::nullopt);
}

}  // namespace
