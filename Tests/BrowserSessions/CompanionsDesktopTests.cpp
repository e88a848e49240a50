// What the sources of sessions make of companions on a session bus.

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "BrowserSessions/Chromium/ChromiumUserData.h"
#include "BrowserSessions/Companion/Companions.h"
#include "BrowserSessions/Firefox/FirefoxSession.h"
#include "Tests/BrowserSessions/BrowserSessionPrinting.h"
#include "Tests/BrowserSessions/FakeDevTools.h"
#include "Tests/BrowserSessions/MozillaLZ4File.h"
#include "Tests/BrowserSessions/SessionLogWriter.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"

namespace BrowserSessions {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::chrono::milliseconds soon{200};

/// A companion in this process.
class FakeCompanion : public TestSupport::FakeService {
 public:
  explicit FakeCompanion(pid_t number, const std::string& windows = "", pid_t browser = getpid())
      : FakeService(companionName(browser, number), companionPath, companionIntrospection) {
    answer("List", "(uint32 1, @a{sv} {}, @a(xsbs) [" + windows + "])");
  }
};

/// A window with one tab, in GVariant's text form.
std::string window(int number, const std::string& name, const std::string& type = "normal") {
  return "(" + std::to_string(number) + ", '" + type + "', false, 'a\\n" + name + "\\n" + name + "\\n')";
}

BrowserWindow windowWith(const std::string& name) {
  return {{{name, name}}, 0};
}

TEST(Companions, AreAskedIfTheyAreInTheBrowser) {
  const FakeCompanion first(1, window(1, "a"));
  const FakeCompanion second(2, window(2, "b"));
  const FakeCompanion ofAnotherBrowser(3, window(3, "c"), getpid() * 10);
  const auto reading = askCompanions(getpid());
  ASSERT_EQ(reading.answers.size(), 2U);
  EXPECT_THAT(reading.problems, IsEmpty());
  EXPECT_EQ(reading.answers[0].windows.at(0).number + reading.answers[1].windows.at(0).number, 3);
  EXPECT_THAT(ofAnotherBrowser.calls(), IsEmpty());
}

TEST(Companions, AreNoneWithoutABus) {
  const TestSupport::EnvironmentVariable bus("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
  const auto reading = askCompanions(1);
  EXPECT_THAT(reading.answers, IsEmpty());
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(Companions, AreNotWaitedForLong) {
  FakeCompanion silent(1);
  silent.answer("List", [](GDBusMethodInvocation*) {});
  const FakeCompanion other(2, window(2, "b"));
  const auto reading = askCompanions(getpid(), soon);
  EXPECT_EQ(reading.answers.size(), 1U);
  EXPECT_THAT(reading.problems, ElementsAre("The browser's companion does not answer."));
}

TEST(Companions, SayWhyTheyCannotAnswer) {
  FakeCompanion companion(1);
  companion.refuse("List");
  const auto reading = askCompanions(getpid());
  ASSERT_EQ(reading.problems.size(), 1U);
  EXPECT_THAT(reading.problems[0], testing::StartsWith("The browser's companion does not list the tabs: "));
}

TEST(Companions, ThatAreGoneAreNoProblem) {
  FakeCompanion companion(1);
  companion.answer("List", [&companion](GDBusMethodInvocation*) { companion.disappear(); });
  const auto reading = askCompanions(getpid());
  EXPECT_THAT(reading.answers, IsEmpty());
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST(Companions, OfAnotherVersionAreAProblem) {
  FakeCompanion companion(1);
  companion.answerUnchecked("List", "(uint32 9,)");
  const auto reading = askCompanions(getpid());
  EXPECT_THAT(reading.answers, IsEmpty());
  ASSERT_EQ(reading.problems.size(), 1U);
  EXPECT_THAT(reading.problems[0], testing::HasSubstr("version 9 of the companion"));
}

class ChromiumCompanions : public testing::Test {
 protected:
  ChromiumCompanions() {
    for (const char* profile : {"Default", "Profile 1"})
      std::filesystem::create_directory(folder_.path() / profile);
    log("Default", 1, "first");
    log("Profile 1", 2, "second");
  }

  void log(const std::string& profile, int window, const std::string& url) const {
    folder_.write(profile + "/Sessions/Session_1",
                  SessionLogWriter().window(window).tab(window, window + 10, 0, url).marker().bytes());
  }
  void twoProfiles() const {
    folder_.write("Local State", R"({"profile": {"info_cache": {"Default": {}, "Profile 1": {"a": [{}]}},
                                                 "last_active_profiles": ["Default", "Profile 1"]}})");
  }

  [[nodiscard]] SessionReading read() const { return chromiumUserDataSession(folder_.path(), getpid()).value(); }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(ChromiumCompanions, AreAskedFirst) {
  const auto devTools = FakeDevTools::withTabs({FakeDevTools::tab("Live", "live", 1, 0)});
  devTools.noteIn(folder_);
  const FakeCompanion companion(1, window(1, "now"));
  EXPECT_EQ(read(), (SessionReading{{windowWith("now")}}));
}

TEST_F(ChromiumCompanions, TellAllIfEachProfileHasOne) {
  twoProfiles();
  const FakeCompanion first(1, window(7, "now"));
  const FakeCompanion second(2, window(8, "too"));
  EXPECT_THAT(read().session, testing::UnorderedElementsAre(windowWith("now"), windowWith("too")));
}

TEST_F(ChromiumCompanions, MayTellThatNothingIsOpen) {
  const FakeCompanion companion(1);
  EXPECT_EQ(read(), SessionReading());
}

TEST_F(ChromiumCompanions, AreJoinedWithTheLogsOfTheOtherProfiles) {
  twoProfiles();
  const FakeCompanion companion(1, window(1, "now"));
  EXPECT_EQ(read(), (SessionReading{{windowWith("now"), windowWith("second")}}));
}

TEST_F(ChromiumCompanions, MayBeInAnyOfTheProfiles) {
  twoProfiles();
  const FakeCompanion companion(1, window(3, "popup", "popup") + ", " + window(2, "now"));
  EXPECT_EQ(read(), (SessionReading{{windowWith("now"), windowWith("first")}}));
}

TEST_F(ChromiumCompanions, LeaveProblemsOfProfilesWithoutOne) {
  twoProfiles();
  folder_.write("Profile 1/Sessions_Encrypted/Session_2", "");
  std::filesystem::remove(folder_.path() / "Profile 1/Sessions/Session_1");
  const FakeCompanion companion(1, window(1, "now"));
  const auto reading = read();
  EXPECT_THAT(reading.session, ElementsAre(windowWith("now")));
  EXPECT_THAT(reading.problems, ElementsAre(testing::HasSubstr("encrypted")));
}

TEST_F(ChromiumCompanions, MakeLogsThatCannotBeReadUnnecessary) {
  // A third profile is not open.
  folder_.write("Local State", R"({"profile": {"info_cache": {"Default": {}, "Profile 1": {}, "Profile 2": {}},
                                               "last_active_profiles": ["Default", "Profile 1"]}})");
  folder_.write("Profile 1/Sessions_Encrypted/Session_2", "");
  std::filesystem::remove(folder_.path() / "Profile 1/Sessions/Session_1");
  const FakeCompanion first(1, window(1, "now"));
  const FakeCompanion second(2, window(8, "too"));
  const auto reading = read();
  EXPECT_THAT(reading.session, testing::UnorderedElementsAre(windowWith("now"), windowWith("too")));
  EXPECT_THAT(reading.problems, IsEmpty());
}

TEST_F(ChromiumCompanions, ArePassedOverIfTheyCannotAnswer) {
  FakeCompanion companion(1);
  companion.refuse("List");
  const auto reading = read();
  EXPECT_THAT(reading.session, ElementsAre(windowWith("first")));
  EXPECT_THAT(reading.problems, ElementsAre(testing::StartsWith("The browser's companion does not list the tabs: ")));
}

TEST_F(ChromiumCompanions, SayWhyOneOfThemCannotAnswer) {
  twoProfiles();
  const FakeCompanion first(1, window(1, "now"));
  FakeCompanion second(2);
  second.refuse("List");
  const auto reading = read();
  EXPECT_THAT(reading.session, ElementsAre(windowWith("now"), windowWith("second")));
  EXPECT_THAT(reading.problems, ElementsAre(testing::StartsWith("The browser's companion does not list the tabs: ")));
}

TEST_F(ChromiumCompanions, GiveUntitledPagesTheBrowsersNameForThem) {
  const FakeCompanion companion(1, "(1, 'normal', false, 'a\\n\\nhttp://a.b/c\\n')");
  EXPECT_THAT(read().session, ElementsAre(BrowserWindow{{{"a.b/c", "http://a.b/c"}}, 0}));
}

TEST_F(ChromiumCompanions, AreNotAskedIfTheProcessIsUnknown) {
  const FakeCompanion companion(1, window(1, "now"));
  const auto reading = chromiumUserDataSession(folder_.path());
  EXPECT_THAT(reading.value().session, ElementsAre(windowWith("first")));
  EXPECT_THAT(companion.calls(), IsEmpty());
}

class FirefoxCompanion : public testing::Test {
 protected:
  FirefoxCompanion() {
    folder_.write(".parentlock", "");
    const auto anHourAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(folder_.path() / ".parentlock", anHourAgo);
    folder_.write("sessionstore-backups/recovery.jsonlz4",
                  Testing::mozillaLZ4File(R"({"version": ["sessionrestore", 1], "windows": [
                                     {"tabs": [{"entries": [{"url": "saved", "title": "Saved"}]}]}]})"));
  }

  [[nodiscard]] SessionReading read() const { return firefoxSession(folder_.path(), getpid()).value(); }

  TestSupport::TemporaryFolder folder_;
};

TEST_F(FirefoxCompanion, IsAskedFirst) {
  const FakeCompanion companion(1, window(2, "now") + ", " + window(1, "popup", "popup"));
  EXPECT_EQ(read(), (SessionReading{{windowWith("now"), windowWith("popup")}}));
}

TEST_F(FirefoxCompanion, MayTellThatNothingIsOpen) {
  const FakeCompanion companion(1, "(1, 'normal', false, '')");
  EXPECT_EQ(read(), SessionReading());
}

TEST_F(FirefoxCompanion, IsPassedOverIfItCannotAnswer) {
  FakeCompanion companion(1);
  companion.refuse("List");
  const auto reading = read();
  EXPECT_EQ(reading.session, (BrowserSession{{{{"Saved", "saved"}}, 0}}));
  EXPECT_THAT(reading.problems, ElementsAre(testing::StartsWith("The browser's companion does not list the tabs: ")));
}

TEST_F(FirefoxCompanion, TellsOfEachWindowOnce) {
  const FakeCompanion first(1, window(1, "now"));
  const FakeCompanion second(2, window(1, "now"));
  EXPECT_EQ(read().session, (BrowserSession{windowWith("now")}));
}

TEST_F(FirefoxCompanion, NamesPagesAsFirefoxDoes) {
  const FakeCompanion companion(
      1, "(1, 'normal', false, 'a\\n\\nhttps://www.a.b/c\\n\\nT\\nabout:reader?url=https%3A%2F%2Fa.b%2Fd\\n')");
  EXPECT_EQ(read().session, (BrowserSession{{{{"a.b/c", "https://www.a.b/c"}, {"T", "https://a.b/d"}}, 0}}));
}

TEST_F(FirefoxCompanion, IsNotAskedIfTheProcessIsUnknown) {
  const FakeCompanion companion(1, window(1, "now"));
  EXPECT_EQ(firefoxSession(folder_.path()).value().session, (BrowserSession{{{{"Saved", "saved"}}, 0}}));
}

}  // namespace
}  // namespace BrowserSessions
