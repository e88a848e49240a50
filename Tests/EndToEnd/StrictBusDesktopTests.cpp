// Thousands of commands on a bus that allows few unanswered calls.

#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/StrictBus.h"

using TestSupport::ChildProcess;

namespace {

TEST(StrictBusTest, BringsEveryCommandToTheHost) {
  const TestSupport::StrictBus bus;
  TestSupport::FakeDeskloomHost host;
  host.answer("Open", "()");
  ChildProcess plugin({TEST_PLUGIN_PROGRAM, "deskloomplugin://run/times=1000+quit"}, {.captureErrors = true});
  EXPECT_EQ(plugin.readAll(), "");
  EXPECT_EQ(plugin.wait(), 0);
  host.awaitCalls("Open", 1000);
  EXPECT_EQ(host.calls().size(), 1000U);
}

}  // namespace
