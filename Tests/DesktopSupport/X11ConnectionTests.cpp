#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/SilentServer.h"
#include "Tests/Support/TemporaryFolder.h"

using DesktopSupport::X11Connection;
using TestSupport::EnvironmentVariable;

namespace {

using namespace std::chrono_literals;

TEST(X11Connection, FailsWithoutADisplay) {
  const EnvironmentVariable display("DISPLAY", std::nullopt);
  EXPECT_EQ(X11Connection::connect().error().message, "There is no X display: DISPLAY is not set.");
}

TEST(X11Connection, FailsIfTheServerTakesItAndSaysNothing) {
  const TestSupport::SilentServer server;
  constexpr int portOfDisplayZero = 6000;
  const EnvironmentVariable display("DISPLAY", "127.0.0.1:" + std::to_string(server.port() - portOfDisplayZero));
  EXPECT_EQ(X11Connection::connect(50ms).error().message, "The X server does not answer.");
}

TEST(X11Clients, AreKnownFromTheKernelsTable) {
  const TestSupport::TemporaryFolder folder;
  const std::string head = "Num       RefCount Protocol Flags    Type St Inode Path\n";
  const std::string listening = "0: 00000002 00000000 00010000 0001 01 55258122 ";
  const std::string connected = "0: 00000003 00000000 00000000 0001 03 55258122 ";
  const auto has = [&](const std::string& lines) {
    return DesktopSupport::hasX11Clients(folder.write("sockets", head + lines));
  };
  const EnvironmentVariable display("DISPLAY", ":7");
  EXPECT_TRUE(has(connected + "/tmp/.X11-unix/X7\n"));
  EXPECT_TRUE(has(listening + "/tmp/.X11-unix/X7\n" + connected + "@/tmp/.X11-unix/X7\n"));
  EXPECT_FALSE(has(listening + "/tmp/.X11-unix/X7\n"));
  EXPECT_FALSE(has(connected + "/tmp/.X11-unix/X77\n"));
  EXPECT_FALSE(has(connected + "\n"));
  EXPECT_FALSE(has(""));
  EXPECT_FALSE(DesktopSupport::hasX11Clients(folder.path() / "missing"));
}

TEST(X11Clients, AreThoseOfTheServerThatIsNamed) {
  const TestSupport::TemporaryFolder folder;
  const auto sockets = folder.write("sockets", "0: 00000003 00000000 00000000 0001 03 1 @/tmp/.X11-unix/X7\n");
  const auto has = [&](const std::optional<std::string>& name) {
    const EnvironmentVariable display("DISPLAY", name);
    return DesktopSupport::hasX11Clients(sockets);
  };
  EXPECT_TRUE(has(":7"));
  EXPECT_TRUE(has(":7.0"));
  EXPECT_TRUE(has("unix:7"));
  EXPECT_FALSE(has(":0"));
  EXPECT_FALSE(has(":"));
  EXPECT_FALSE(has("7"));
  EXPECT_FALSE(has(std::nullopt));
}

}  // namespace
