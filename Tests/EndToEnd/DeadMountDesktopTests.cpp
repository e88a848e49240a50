// A launch that asks for a folder on a network mount whose server does not answer.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/DeadMount.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::HasSubstr;
using TestSupport::ChildProcess;

namespace {

TEST(DeadMountTest, IsListedAndKeepsNobody) {
  TestSupport::HostProcess host(DESKLOOM_HOST_PROGRAM);
  const TestSupport::TemporaryFolder folder;
  std::filesystem::create_directory(folder.path() / "mount");
  const TestSupport::DeadMount mount(folder.path() / "mount");
  TestSupport::FakeService fileManager("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", R"(
      <node>
        <interface name="org.freedesktop.DBus.Properties">
          <method name="GetAll"><arg type="s"/><arg type="a{sv}" direction="out"/></method>
        </interface>
      </node>)");
  fileManager.answer("GetAll", "({'OpenLocations': <['file://" + mount.path().string() + "/documents']>},)");

  EXPECT_EQ(ChildProcess({GLEANERY_PROGRAM, "deskloomplugin://runCommand/finder"}).wait(), 0);
  EXPECT_THAT(host.nextLine(), HasSubstr("mount%5C/documents"));
}

}  // namespace
