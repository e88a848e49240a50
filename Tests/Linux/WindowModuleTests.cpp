#include <gmock/gmock.h>

#include "Linux/Alerts.h"
#include "Linux/Bundle.h"
#include "Linux/Windows.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

namespace {

/// A bundle without a window module that can be used.
class WindowModuleTest : public testing::Test {
 protected:
  TestSupport::TemporaryFolder folder;
  Platform::Fake::FakeLog log;
  Platform::Fake::FakeStrings strings;
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Linux::Application application{appleEvents, notifications};
  Linux::Bundle bundle{folder.path()};
  Linux::WindowModule module{bundle};
};

TEST_F(WindowModuleTest, SaysWhyItCannotBeLoaded) {
  const auto toolkit = module.toolkit();
  ASSERT_FALSE(toolkit);
  EXPECT_THAT(toolkit.error(), HasSubstr("the window module cannot be loaded: "));
  EXPECT_THAT(toolkit.error(), HasSubstr("deskloom-windows.so"));
}

TEST_F(WindowModuleTest, IsRefusedWhereItIsNoModule) {
  folder.write("deskloom-windows.so", "rubbish");
  EXPECT_FALSE(module.toolkit());
}

TEST_F(WindowModuleTest, AnAlertIsWrittenToTheLogWithoutIt) {
  Linux::Alerts alerts(module, application, strings, log);
  alerts.runModal({.messageText = "Message", .informativeText = "Text"});
  EXPECT_THAT(log.messages,
              ElementsAre("Message", "Text", HasSubstr("the alert could not be shown: the window module")));
}

TEST_F(WindowModuleTest, ThereAreNoWindowsWithoutItWhichIsLogged) {
  Linux::Windows windows(module, log);
  EXPECT_EQ(windows.makeWindow({.title = "Title"}), nullptr);
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("the window \"Title\" could not be shown: ")));
}

}  // namespace
