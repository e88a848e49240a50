// Real processes whose bundles or arguments are invalid.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
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

TEST_F(DamagedBundleTest, SaysNothingThatATerminalObeys) {
  bundle.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\nVersion=1\x1b[2J\u202E\n");
  ChildProcess version({program, "--version"});
  EXPECT_EQ(version.readAll(), "1[2J\\u{202E}\n");
  ChildProcess wrong({program, "--\x1b[2J\n"}, {.environment = {}, .captureErrors = true});
  EXPECT_THAT(wrong.readAll(), AllOf(HasSubstr("--[2J"), Not(HasSubstr("\x1b"))));
}

}  // namespace
