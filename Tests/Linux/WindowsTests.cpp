#include <gmock/gmock.h>

#include "Linux/Bundle.h"
#include "Linux/Windows.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// A bundle without a window module that can be used.
class WindowsTest : public testing::Test {
 protected:
  TestSupport::TemporaryFolder folder;
  Platform::Fake::FakeLog log;
  Platform::Fake::FakeStrings strings;
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Linux::Application application{appleEvents, notifications};
  Linux::Bundle bundle{folder.path()};
  Linux::Windows windows{bundle, log};
};

TEST_F(WindowsTest, SayWhyTheirModuleCannotBeLoaded) {
  const auto toolkit = windows.toolkit();
  ASSERT_FALSE(toolkit);
  EXPECT_THAT(toolkit.error(), HasSubstr("the window module cannot be loaded: "));
  EXPECT_THAT(toolkit.error(), HasSubstr("deskloom-windows.so"));
}

TEST_F(WindowsTest, RefuseAFileThatIsNoModule) {
  folder.write("deskloom-windows.so", "rubbish");
  EXPECT_FALSE(windows.toolkit());
}

TEST_F(WindowsTest, AnAlertIsWrittenToTheLogWithoutTheModule) {
  Linux::Alerts alerts(windows, application, strings, log);
  alerts.runModal({.messageText = "Message", .informativeText = "Text"});
  EXPECT_THAT(log.messages,
              ElementsAre("Message", "Text", HasSubstr("the alert could not be shown: the window module")));
}

TEST_F(WindowsTest, NoneIsMadeWithoutTheModuleAndTheLogSaysSo) {
  EXPECT_EQ(windows.makeWindow({.title = "Title"}), nullptr);
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("the window \"Title\" could not be shown: ")));
}

}  // namespace
