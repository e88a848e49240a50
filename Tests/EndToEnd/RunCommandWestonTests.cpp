#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/HostProcess.h"

namespace {

TEST(RunCommandOnWeston, SendsAnEmptyListAndLogsWhyNothingIsKnown) {
  TestSupport::HostProcess host(DESKLOOM_HOST_PROGRAM);
  TestSupport::ChildProcess plugin({GLEANERY_PROGRAM, "deskloomplugin://runCommand/apps"}, {.captureErrors = true});
  EXPECT_THAT(plugin.readAll(), testing::HasSubstr("weston does not tell other programs about its windows"));
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
}

}  // namespace
