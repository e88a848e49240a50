// A plug-in whose bundle names a feed with a newer version.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeNotifications.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::AllOf;
using testing::HasSubstr;
using TestSupport::ChildProcess;
using TestSupport::FakeNotifications;
using TestSupport::HostProcess;

namespace {

TEST(UpdateTest, ALaunchStartsACheckThatTellsTheUserAboutANewerVersion) {
  const TestSupport::TemporaryFolder folder;
  const auto program = std::filesystem::path(GLEANERY_PROGRAM);
  const auto bundle = folder.path() / "com.quillary.Gleanery";
  std::filesystem::copy(program.parent_path(), bundle, std::filesystem::copy_options::recursive);
  std::filesystem::copy_file(UPDATE_CHECK_PROGRAM, bundle / "update-check");
  folder.write("com.quillary.Gleanery/Info.ini",
               "[Bundle]\nIdentifier=com.quillary.Gleanery\nName=Gleanery\nVersion=1.9\n"
               "[Updates]\nFeedURL=file://" +
                   folder.path().string() + "/appcast.xml\n");
  folder.write("appcast.xml",
               "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel>"
               "<item><sparkle:version>1.10</sparkle:version></item></channel></rss>");
  prctl(PR_SET_CHILD_SUBREAPER, 1);  // the check becomes this process's child when the plug-in ends
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  FakeNotifications notifications;

  ChildProcess plugin({bundle / program.filename(), "deskloomplugin://runCommand/nobody"},
                      {.environment = {{"XDG_STATE_HOME", folder.path() / "state"}}});
  EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
  EXPECT_EQ(plugin.wait(), 0) << "the launch does not wait for the check";
  EXPECT_THAT(notifications.await(), AllOf(HasSubstr("Gleanery"), HasSubstr("1.10")));
  notifications.close();
  int status = -1;
  ::wait(&status);  // for the check: the host is still running
  EXPECT_EQ(status, 0);
}

}  // namespace
