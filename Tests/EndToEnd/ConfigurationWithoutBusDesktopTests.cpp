// A configuration provider whose session bus goes away. The bus is this program's own.

#include <csignal>
#include <cstdlib>
#include <optional>
#include <string>

#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "Tests/EndToEnd/ConfiguredPlugin.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/HostProcess.h"

using TestSupport::ChildProcess;
using TestSupport::EnvironmentVariable;
using TestSupport::HostProcess;

namespace {

struct Options {
  int count = 10;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count)

TEST_F(ConfiguredPluginTest, TheBusMayGoAwayWithAWritePending) {
  ChildProcess bus({"dbus-daemon", "--session", "--nofork", "--print-address=1"});
  const auto address = bus.readLine();
  ASSERT_TRUE(address);
  const EnvironmentVariable variable("DBUS_SESSION_BUS_ADDRESS", address);
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto provider = DeskloomSDK::LocalConfigProvider<Options>::make("A", {});
  ASSERT_TRUE(provider);
  provider->config.count = 3;
  provider->save();

  ASSERT_EQ(kill(bus.pid(), SIGKILL), 0);
  bus.wait();
  expectReadAlert(awaitAlert(), "Could not run script");
  EXPECT_EQ(provider->config.count, 3);
  quit();
  EXPECT_TRUE(alerts.shown.empty());
}

}  // namespace
