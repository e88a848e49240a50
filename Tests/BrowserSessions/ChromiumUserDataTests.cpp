#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/ChromiumUserData.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/BrowserSessions/FakeDevTools.h"
#include "Tests/BrowserSessions/OtherProcess.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

class ChromiumUserData : public testing::Test {
 protected:
  ChromiumUserData() {
    for (const char* profile : {"Default", "Profile 1", "Profile 2"})
      std::filesystem::create_directory(folder_.path() / profile);
  }

  void state(const std::string& json) const { folder_.write("Local State", json); }

  void log(const std::string& folder, const std::string& url) const {
    folder_.write(folder + "/Sessions/Session_1", SessionLogWriter().window(1).tab(1, 11, 0, url).marker().bytes());
  }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(ChromiumUserData, HasOpenWhatAllItsOpenProfilesHave) {
  state(R"({"profile": {"last_active_profiles": ["Profile 1", "Default"]}})");
  log("Default", "default");
  log("Profile 1", "first");
  log("Profile 2", "second");
  const BrowserSession expected = {{{{"first", "first"}}, 0}, {{{"default", "default"}}, 0}};
  EXPECT_EQ(chromiumUserDataSession(folder_.path()), SessionReading{expected});
}

TEST_F(ChromiumUserData, LeavesOutAProfileThatCannotBeRead) {
  state(R"({"profile": {"last_active_profiles": ["Profile 1", "Default"]}})");
  folder_.write("Profile 1/Sessions_Encrypted/Session_1", "");
  log("Default", "default");
  const SessionReading expected = {
      .session = {{{{"default", "default"}}, 0}},
      .problems = {"The browser keeps the session in " + (folder_.path() / "Profile 1").string() + " encrypted."}};
  EXPECT_EQ(chromiumUserDataSession(folder_.path()), expected);
}

TEST_F(ChromiumUserData, CannotBeReadWhereNoProfileCan) {
  folder_.write("Default/Sessions_Encrypted/Session_1", "");
  const auto session = chromiumUserDataSession(folder_.path());
  ASSERT_FALSE(session);
  EXPECT_EQ(session.error(),
            "The browser keeps the session in " + (folder_.path() / "Default").string() + " encrypted.");
}

TEST_F(ChromiumUserData, SaysHowManyTabsAreLeftOut) {
  const auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a").tab(1, 12, 1, "").marker();
  folder_.write("Default/Sessions/Session_1", log.bytes());
  const SessionReading expected = {
      .session = {{{{"a", "a"}}, 0}},
      .problems = {"Tabs of the profile " + (folder_.path() / "Default").string() +
                   " left out because their addresses are too long for the browser's session log: 1."}};
  EXPECT_EQ(chromiumUserDataSession(folder_.path()), expected);
}

TEST_F(ChromiumUserData, LeavesOutNoTabThatTheBrowserItselfTells) {
  state(R"({"profile": {"last_active_profiles": ["Default", "Profile 1"]}})");
  folder_.write("Default/Sessions/Session_1", SessionLogWriter().window(1).tab(1, 11, 0, "").marker().bytes());
  log("Profile 1", "first");
  const auto devTools = FakeDevTools::withTabs({FakeDevTools::tab("Long", "long", 1, 0)});
  devTools.noteIn(folder_);
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()), (SessionReading{{{{{"Long", "long"}}, 0}}}));
}

TEST_F(ChromiumUserData, HasTheTitlesOfTheBrowsersWindows) {
  state(R"({"profile": {"last_active_profiles": ["Profile 1", "Default"]}})");
  const auto tabs = SessionLogWriter().window(1).tab(1, 11, 0, "a", u"A").tab(1, 12, 1, "b").shown(1, 1).marker();
  folder_.write("Default/Sessions/Session_1", tabs.bytes());
  folder_.write("Profile 1/Sessions/Session_1",
                SessionLogWriter().window(2).tab(2, 21, 0, "c").shown(2, 0).marker().bytes());
  const BrowserSession expected = {{{{"Page C", "c"}}, 0}, {{{"A", "a"}, {"Page B", "b"}}, 1}};
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), std::nullopt, {"Page B", "Page C"}), SessionReading{expected});
}

TEST_F(ChromiumUserData, HasNoTitleOfAWindowWhoseTabMayBeLeftOut) {
  const auto log = SessionLogWriter().window(1).tab(1, 11, 0, "a").tab(1, 12, 1, "").shown(1, 1).marker();
  folder_.write("Default/Sessions/Session_1", log.bytes());
  const auto reading = chromiumUserDataSession(folder_.path(), std::nullopt, {"Too long"});
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->session, (BrowserSession{{{{"a", "a"}}, 0}}));
}

TEST_F(ChromiumUserData, HasOpenWhatTheBrowserItselfTells) {
  log("Default", "logged");
  const auto devTools = FakeDevTools::withTabs({FakeDevTools::tab("Live", "live", 1, 0)});
  devTools.noteIn(folder_);
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()), (SessionReading{{{{{"Live", "live"}}, 0}}}));
}

TEST_F(ChromiumUserData, HasNoWindowsOfWebApplicationsOpen) {
  log("Default", "logged");
  folder_.write("Default/Sessions/Apps_1", SessionLogWriter().window(2, 2).tab(2, 21, 0, "app").marker().bytes());
  const auto devTools =
      FakeDevTools::withTabs({FakeDevTools::tab("A", "a", 1, 0), FakeDevTools::tab("App", "app", 2, 0)});
  devTools.noteIn(folder_);
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()), (SessionReading{{{{{"A", "a"}}, 0}}}));
}

TEST_F(ChromiumUserData, IsReadThroughTheBrowserWhereItsSessionIsEncrypted) {
  folder_.write("Default/Sessions_Encrypted/Session_1", "");
  const auto devTools = FakeDevTools::withTabs(
      {FakeDevTools::tab("Live", "live", 1, 0), FakeDevTools::tab("Private", "private", 2, 0, true, "private")});
  devTools.noteIn(folder_);
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()), (SessionReading{{{{{"Live", "live"}}, 0}}}));
}

TEST_F(ChromiumUserData, SaysWhichProfileTheBrowserMayHaveLeftOut) {
  state(R"({"profile": {"last_active_profiles": ["Profile 1", "Default"]}})");
  folder_.write("Profile 1/Sessions_Encrypted/Session_1", "");
  log("Default", "logged");
  const auto devTools = FakeDevTools::withTabs({FakeDevTools::tab("Live", "live", 1, 0)});
  devTools.noteIn(folder_);
  const auto reading = chromiumUserDataSession(folder_.path(), getpid());
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->session.size(), 1U);
  EXPECT_EQ(reading->problems.size(), 1U);
}

TEST_F(ChromiumUserData, IsReadFromTheLogWhereNobodyAnswersOnThePort) {
  log("Default", "logged");
  folder_.write("DevToolsActivePort", std::to_string(deadPort()) + "\n" + FakeDevTools::path);
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()), (SessionReading{{{{{"logged", "logged"}}, 0}}}));
}

TEST_F(ChromiumUserData, IsReadFromTheLogWhereAnotherProgramHasThePort) {
  log("Default", "logged");
  const OtherProcess other([](const OtherProcess::Tell& tell) {
    const auto devTools = FakeDevTools::withTabs({FakeDevTools::tab("Injected", "injected", 1, 0)});
    tell(devTools.port());
  });
  ASSERT_NE(other.port(), 0);
  folder_.write("DevToolsActivePort", std::to_string(other.port()) + "\n" + FakeDevTools::path);
  const auto reading = chromiumUserDataSession(folder_.path(), getpid());
  ASSERT_TRUE(reading);
  EXPECT_EQ(reading->session, (BrowserSession{{{{"logged", "logged"}}, 0}}));
  EXPECT_THAT(reading->problems, testing::ElementsAre(testing::HasSubstr("another program has their port")));
  EXPECT_EQ(chromiumUserDataSession(folder_.path()), (SessionReading{{{{{"logged", "logged"}}, 0}}}))
      << "nobody knows whose port it is";
}

TEST_F(ChromiumUserData, CannotBeReadWithoutAProfile) {
  EXPECT_EQ(chromiumUserDataSession(folder_.path() / "missing").error(),
            "There is no profile in " + (folder_.path() / "missing").string() + '.');
}

TEST_F(ChromiumUserData, CannotBeReadFromTheLogsOfAnEarlierRun) {
  log("Default", "before");
  std::filesystem::create_symlink("host-" + std::to_string(getpid()), folder_.path() / "SingletonLock");
  EXPECT_EQ(chromiumUserDataSession(folder_.path()), (SessionReading{{{{{"before", "before"}}, 0}}}));
  EXPECT_EQ(chromiumUserDataSession(folder_.path(), getpid()).error(),
            "The session of the profile " + (folder_.path() / "Default").string() +
                " is unknown: the browser has not written a session log since it was started.");
}

}  // namespace
}  // namespace BrowserSessions
