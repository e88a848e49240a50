// Real processes whose bundles say something that cannot be.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::Contains;
using testing::HasSubstr;
using TestSupport::ChildProcess;

namespace {

class DamagedBundleTest : public testing::Test {
 protected:
  DamagedBundleTest() {
    host.answer("Open", "()");
    std::filesystem::copy_file(TEST_PLUGIN_PROGRAM, program);
  }

  TestSupport::TemporaryFolder bundle;
  const std::filesystem::path program = bundle.path() / "test-plugin";
  TestSupport::FakeDeskloomHost host;
};

TEST_F(DamagedBundleTest, RunsWithAnIdentifierThatIsNoBusName) {
  bundle.write("Info.ini", "[Bundle]\nIdentifier=Plugin\n");
  ChildProcess plugin({program, "deskloomplugin://run/send+quit"}, {.environment = {}, .captureErrors = true});
  EXPECT_THAT(plugin.readAll(), HasSubstr("the bundle identifier Plugin cannot be a name on the bus\n"));
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_THAT(host.calls(), Contains(HasSubstr("sent")));
}

}  // namespace
