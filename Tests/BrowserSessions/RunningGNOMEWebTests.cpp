#include <gtest/gtest.h>

#include "BrowserSessions/GNOMEWeb/RunningGNOMEWeb.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::GNOMEWebHome;
using DesktopSupport::ProcessInfo;
using TestSupport::EnvironmentVariable;

const GNOMEWebHome home = {.home = "/home/user", .data = "/home/user/data"};

class GNOMEWebProfile : public testing::Test {
 protected:
  [[nodiscard]] ProcessInfo processIn(const std::string& sandbox) const {
    folder_.write("42/root/.flatpak-info", "[Application]\nname=" + sandbox + "\nruntime=runtime/org.gnome.Platform\n");
    return ProcessInfo(42, folder_.path());
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(GNOMEWebProfile, IsTheUsersOutsideOfASandbox) {
  EXPECT_EQ(gnomeWebProfile(ProcessInfo(42, folder_.path()), home), "/home/user/data/epiphany");
}

TEST_F(GNOMEWebProfile, IsTheSandboxesOwnInside) {
  EXPECT_EQ(gnomeWebProfile(processIn("org.gnome.Epiphany"), home),
            "/home/user/.var/app/org.gnome.Epiphany/data/epiphany");
}

TEST_F(GNOMEWebProfile, IsAbsentInTheSandboxOfAnotherProgram) {
  EXPECT_EQ(gnomeWebProfile(processIn("org.example.Other"), home), std::nullopt);
}

TEST_F(GNOMEWebProfile, IsLookedForInTheUsersFolders) {
  const EnvironmentVariable data("XDG_DATA_HOME", "/data");
  EXPECT_EQ(GNOMEWebHome::ofUser().data, "/data");
  EXPECT_TRUE(GNOMEWebHome::ofUser().home.is_absolute());
}

TEST_F(GNOMEWebProfile, IsLookedForInTheUsualFolderWhereTheVariableIsOfNoUse) {
  for (const char* value : {"relative/folder", ""}) {
    const EnvironmentVariable data("XDG_DATA_HOME", value);
    EXPECT_EQ(GNOMEWebHome::ofUser().data, GNOMEWebHome::ofUser().home / ".local/share") << value;
  }
}

TEST(GNOMEWebThatRuns, IsNoneWithoutASessionBus) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/such/socket");
  EXPECT_EQ(BrowserSessions::runningGNOMEWeb(), std::nullopt);
}

}  // namespace
