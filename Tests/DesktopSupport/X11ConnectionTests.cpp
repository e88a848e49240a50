#include <string>

#include <gtest/gtest.h>

#include "DesktopSupport/Windows/X11/X11Connection.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/SilentServer.h"

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

}  // namespace
