#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/UpdateCheck/SigningKey.h"
#include "UpdateCheck/UpdateChecker.h"

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using UpdateCheck::UpdateChecker;
using UpdateCheck::UpdateSettings;
using UpdateCheck::UpdateState;
using UpdateCheck::UpdateStateFile;

/// Checks without a session bus, so that the user can never be told.
class UpdateCheckerTest : public testing::Test {
 protected:
  void offer(const std::string& version) const {
    folder.write("appcast.xml",
                 "<rss xmlns:sparkle='http://www.andymatuschak.org/xml-namespaces/sparkle'><channel><item>"
                 "<sparkle:version>" +
                     version + "</sparkle:version></item></channel></rss>");
  }

  void check() {
    UpdateChecker(settings,
                  {.stateFolder = stateFolder, .now = now, .kernelRelease = "6.1", .strings = strings, .log = log})
        .run();
  }

  [[nodiscard]] UpdateState state() const { return (*lock())->read(); }
  [[nodiscard]] std::expected<std::optional<UpdateStateFile>, std::string> lock() const {
    return UpdateStateFile::lock(stateFolder, settings.identifier);
  }

  TestSupport::TemporaryFolder folder;
  TestSupport::EnvironmentVariable noBus{"DBUS_SESSION_BUS_ADDRESS", std::nullopt};
  TestSupport::EnvironmentVariable noRuntimeFolder{"XDG_RUNTIME_DIR", std::nullopt};
  Platform::Fake::FakeStrings strings;
  Platform::Fake::FakeLog log;
  std::filesystem::path stateFolder = folder.path() / "state";
  std::chrono::sys_seconds now{1'700'000'000s};
  UpdateSettings settings{.identifier = "com.example.Plugin",
                          .name = "Plugin",
                          .version = "1.0",
                          .feed = Platform::URL::fileURL(folder.path() / "appcast.xml"),
                          .interval = 24h,
                          .publicKey = std::nullopt};
};

constexpr const char* noUpdate = "there is no update of Plugin 1.0";
constexpr const char* noFeed =
    "could not check for an update of Plugin: the feed cannot be loaded: No such file or directory";
constexpr const char* unreachable =
    "could not check for an update of Plugin: the user cannot be told: There is no session bus.";

TEST_F(UpdateCheckerTest, LogsThatThereIsNothingNew) {
  for (const auto* version : {"1.0", "0.9"}) {
    offer(version);
    check();
    EXPECT_EQ(state().lastCheck, now);
    now += 24h;
  }
  EXPECT_THAT(log.messages, ElementsAre(noUpdate, noUpdate));
}

TEST_F(UpdateCheckerTest, DoesNotAskAgainWithinTheInterval) {
  offer("1.0");
  check();
  now += 24h - 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noUpdate));
  now += 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noUpdate, noUpdate));
}

TEST_F(UpdateCheckerTest, AsksAFeedThatCouldNotBeLoadedAgainSoonButNotAtOnce) {
  check();
  now += UpdateState::retryInterval - 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noFeed));
  now += 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noFeed, noFeed));
}

TEST_F(UpdateCheckerTest, KeepsToTheIntervalOnceTheFeedCouldBeLoaded) {
  check();
  offer("1.0");
  now += UpdateState::retryInterval;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noFeed, noUpdate));
  now += 24h - 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noFeed, noUpdate));
  now += 1s;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noFeed, noUpdate, noUpdate));
}

TEST_F(UpdateCheckerTest, KeepsToTheIntervalIfTheFeedCannotBeRead) {
  folder.write("appcast.xml", "not a feed");
  check();
  EXPECT_EQ(state().lastCheck, now);
  now += 24h - 1s;
  check();
  EXPECT_EQ(log.messages.size(), 1U);
}

TEST_F(UpdateCheckerTest, AsksAgainOnceTheClockWasSetBack) {
  offer("1.0");
  check();
  now -= 365 * 24h;
  check();
  EXPECT_THAT(log.messages, ElementsAre(noUpdate, noUpdate));
  EXPECT_EQ(state().lastCheck, now);
}

TEST_F(UpdateCheckerTest, NotesAnAttemptThatFailsAndNoCheck) {
  check();
  EXPECT_EQ(state().lastAttempt, now);
  EXPECT_EQ(state().lastCheck, std::nullopt);
}

TEST_F(UpdateCheckerTest, NotesAVersionOnlyIfTheUserWasTold) {
  offer("2.0");
  check();
  EXPECT_THAT(log.messages, ElementsAre(unreachable));
  EXPECT_EQ(state().announcedVersion, std::nullopt);
}

TEST_F(UpdateCheckerTest, LogsNothingAboutAVersionThatTheUserKnows) {
  offer("2.0");
  ASSERT_TRUE((*lock())->write({.lastCheck = std::nullopt, .announcedVersion = "2.0"}));
  check();
  EXPECT_THAT(log.messages, IsEmpty());
  EXPECT_EQ(state().announcedVersion, "2.0");
}

TEST_F(UpdateCheckerTest, AnnouncesAVersionAfterTheOneThatTheUserKnows) {
  offer("2.1");
  ASSERT_TRUE((*lock())->write({.lastCheck = std::nullopt, .announcedVersion = "2.0"}));
  check();
  EXPECT_THAT(log.messages, ElementsAre(unreachable));
  EXPECT_EQ(state().announcedVersion, "2.0");
}

TEST_F(UpdateCheckerTest, AnnouncesNothingFromAFeedThatCannotBeVerified) {
  const SigningKey key;
  offer("2.0");
  settings.publicKey = key.publicKey();
  folder.write("appcast.xml.sig", key.sign("another feed"));
  check();
  EXPECT_THAT(log.messages, ElementsAre("could not check for an update of Plugin: the feed cannot be verified: its "
                                        "signature does not match"));
  EXPECT_EQ(state().lastCheck, std::nullopt) << "the feed was not loaded as a whole, so it is loaded again soon";
}

TEST_F(UpdateCheckerTest, LeavesTheCheckToAnotherThatIsUnderWay) {
  const auto other = lock();
  check();
  EXPECT_THAT(log.messages, IsEmpty());
  EXPECT_EQ((*other)->read().lastCheck, std::nullopt);
}

TEST_F(UpdateCheckerTest, LoadsNoFeedIfTheTimeCannotBeNoted) {
  folder.write("state/com.example.Plugin.updates/file", "a folder is in the way");
  check();
  ASSERT_EQ(log.messages.size(), 1U);
  EXPECT_THAT(log.messages[0], testing::StartsWith("could not check for an update of Plugin: "));
  EXPECT_THAT(log.messages[0], testing::HasSubstr("com.example.Plugin.updates"));
}

TEST_F(UpdateCheckerTest, LogsOneLineEvenIfTheBundlesNameHasTwo) {
  settings.name = "A\nB";
  check();
  ASSERT_EQ(log.messages.size(), 1U);
  EXPECT_EQ(log.messages[0].find('\n'), std::string::npos);
}

}  // namespace
