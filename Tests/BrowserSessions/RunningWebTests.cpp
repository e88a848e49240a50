#include <gtest/gtest.h>

#include "BrowserSessions/GNOMEWeb/RunningWeb.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::WebHome;
using DesktopSupport::ProcessInfo;
using TestSupport::EnvironmentVariable;

const WebHome home = {.home = "/home/user", .data = "/home/user/data"};

class WebProfile : public testing::Test {
 protected:
  [[nodiscard]] ProcessInfo processIn(const std::string& sandbox) const {
    folder_.write("42/root/.flatpak-info", "[Application]\nname=" + sandbox + "\nruntime=runtime/org.gnome.Platform\n");
    return ProcessInfo(42, folder_.path());
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(WebProfile, IsTheUsersOutsideOfASandbox) {
  EXPECT_EQ(webProfile(ProcessInfo(42, folder_.path()), home), "/home/user/data/epiphany");
}

TEST_F(WebProfile, IsTheSandboxesOwnInside) {
  EXPECT_EQ(webProfile(processIn("org.gnome.Epiphany"), home), "/home/user/.var/app/org.gnome.Epiphany/data/epiphany");
}

TEST_F(WebProfile, IsAbsentInTheSandboxOfAnotherProgram) {
  EXPECT_EQ(webProfile(processIn("org.example.Other"), home), std::nullopt);
}

TEST_F(WebProfile, IsLookedForInTheUsersFolders) {
  const EnvironmentVariable data("XDG_DATA_HOME", "/data");
  EXPECT_EQ(WebHome::ofUser().data, "/data");
  EXPECT_TRUE(WebHome::ofUser().home.is_absolute());
}

TEST_F(WebProfile, IsLookedForInTheUsualFolderWhereTheVariableIsOfNoUse) {
  for (const char* value : {"relative/folder", ""}) {
    const EnvironmentVariable data("XDG_DATA_HOME", value);
    EXPECT_EQ(WebHome::ofUser().data, WebHome::ofUser().home / ".local/share") << value;
  }
}

TEST(WebThatRuns, IsNoneWithoutASessionBus) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/such/socket");
  EXPECT_EQ(BrowserSessions::runningWeb(), std::nullopt);
}

}  // namespace
