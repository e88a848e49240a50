// The Finder with a Dolphin that does not answer as it should.

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "Tests/ScriptableApps/FakeDolphin.h"
#include "Tests/ScriptableApps/FinderTest.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/TestDesktop.h"
#include "Tests/Support/TestWindow.h"

namespace {

using AppleScript::ErrorNumber;
using testing::ElementsAre;
using testing::SizeIs;
using TestSupport::openPaths;
using TestSupport::openPathsAndLog;

/// A window of this process, which says that it is Dolphin.
class DolphinTest : public TestSupport::FinderTest {
 protected:
  DolphinTest() { window_.setClass("dolphin", "dolphin").setText("_NET_WM_NAME", "/ — Dolphin", "UTF8_STRING"); }

  void SetUp() override { ASSERT_TRUE(window_.show()); }

  TestSupport::TestDesktop desktop_;
  TestSupport::TestWindow window_{desktop_};
  TestSupport::FakeDolphin dolphin_{getpid()};
};

TEST_F(DolphinTest, ShowsTheFolderThatItConfirms) {
  dolphin_.shows({"file:///"});
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), ElementsAre("/"));
  EXPECT_EQ(log, "");
}

TEST_F(DolphinTest, DoesNotReportIfItIsNotOnTheBus) {
  dolphin_.disappear();
  window_.setText("_NET_WM_NAME", "folder — Dolphin", "UTF8_STRING");
  desktop_.synchronize();
  TestSupport::awaitNoOwner("org.kde.dolphin-" + std::to_string(getpid()));
  const auto paths = openPaths();
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, ErrorNumber::noSuchObject);
  EXPECT_THAT(paths.error().message, testing::EndsWith(" is running but does not report which folders it shows."));
}

TEST_F(DolphinTest, FailsIfItFails) {
  dolphin_.fails();
  window_.setText("_NET_WM_NAME", "folder — Dolphin", "UTF8_STRING");
  desktop_.synchronize();
  const auto paths = openPaths();
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, ErrorNumber::genericError);
  EXPECT_EQ(paths.error().message, "Finder got an error: No.");
}

TEST_F(DolphinTest, IsWaitedForOnceIfItStaysSilent) {
  dolphin_.staysSilent();
  window_.setText("_NET_WM_NAME", "folder — Dolphin", "UTF8_STRING");
  desktop_.synchronize();
  const auto paths = openPaths(TestSupport::shortly);
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, ErrorNumber::timedOut);
  EXPECT_THAT(dolphin_.calls(), SizeIs(1));
}

TEST_F(DolphinTest, IsReadByItsTitleIfItStaysSilent) {
  dolphin_.staysSilent();
  std::string log;
  EXPECT_THAT(openPathsAndLog(log, TestSupport::shortly), ElementsAre("/"));
  EXPECT_EQ(log, "");
}

}  // namespace
