#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/Firefox/RunningFirefox.h"
#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::FirefoxHome;
using BrowserSessions::RunningFirefox;
using BrowserSessions::Testing::LockedProfile;
using testing::ElementsAre;
using testing::IsEmpty;

class FirefoxesThatRun : public testing::Test {
 protected:
  [[nodiscard]] std::vector<RunningFirefox> running() const {
    return BrowserSessions::runningFirefoxes({.home = home_, .configuration = home_ / ".config"});
  }

  TestSupport::TemporaryFolder folder_;
  const std::filesystem::path home_ = std::filesystem::canonical(folder_.path());
};

TEST_F(FirefoxesThatRun, HaveTheirProfilesLocked) {
  folder_.write(".mozilla/firefox/profiles.ini",
                "[General]\nStartWithLastProfile=1\n[Profile0]\nName=a\nIsRelative=1\nPath=1.a\nDefault=1\n"
                "[Profile1]\nName=b\nIsRelative=1\nPath=2.b\n");
  folder_.write(".mozilla/firefox/1.a/.parentlock", "");
  const LockedProfile running(home_ / ".mozilla/firefox/2.b");
  EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / ".mozilla/firefox/2.b", running.holder()}));
}

TEST_F(FirefoxesThatRun, AreNoneWhereNoProfileIsLocked) {
  EXPECT_THAT(running(), IsEmpty());
  folder_.write(".mozilla/firefox/1.a/.parentlock", "");
  folder_.write(".mozilla/firefox/profiles.ini", "[Profile0]\nPath=1.a\n[Profile1]\nPath=gone\n");
  EXPECT_THAT(running(), IsEmpty());
}

TEST_F(FirefoxesThatRun, AreFoundInEveryLocation) {
  for (const char* location :
       {".mozilla/firefox", ".config/mozilla/firefox", ".var/app/org.mozilla.firefox/.mozilla/firefox",
        ".var/app/org.mozilla.firefox/config/mozilla/firefox", "snap/firefox/common/.mozilla/firefox"}) {
    const LockedProfile running(home_ / location / "1.a");
    EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / location / "1.a", running.holder()}));
  }
}

TEST_F(FirefoxesThatRun, MayBeSeveral) {
  const LockedProfile first(home_ / ".mozilla/firefox/1.a");
  const LockedProfile second(home_ / ".mozilla/firefox/2.b");
  const LockedProfile third(home_ / "snap/firefox/common/.mozilla/firefox/3.c");
  EXPECT_THAT(running(),
              ElementsAre(RunningFirefox{home_ / ".mozilla/firefox/1.a", first.holder()},
                          RunningFirefox{home_ / ".mozilla/firefox/2.b", second.holder()},
                          RunningFirefox{home_ / "snap/firefox/common/.mozilla/firefox/3.c", third.holder()}));
}

TEST_F(FirefoxesThatRun, MayHaveTheirProfilesElsewhere) {
  const LockedProfile running(home_ / "elsewhere/a b=c");
  folder_.write(".mozilla/firefox/profiles.ini",
                "[Profile0]\nIsRelative=0\nPath=" + (home_ / "elsewhere/a b=c").string() + "\n");
  EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / "elsewhere/a b=c", running.holder()}));
}

TEST_F(FirefoxesThatRun, AreThereOnceOnWhicheverWaysTheyAreReached) {
  const LockedProfile running(home_ / ".mozilla/firefox/1.a");
  folder_.write(".mozilla/firefox/profiles.ini", "[Profile0]\nIsRelative=1\nPath=1.a\n[Profile1]\nPath=./1.a/\n");
  std::filesystem::create_directories(home_ / ".config");
  std::filesystem::create_symlink(home_ / ".mozilla", home_ / ".config/mozilla");
  EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / ".mozilla/firefox/1.a", running.holder()}));
}

TEST_F(FirefoxesThatRun, AreFoundWithoutAListThatCanBeRead) {
  const LockedProfile running(home_ / ".mozilla/firefox/1.a");
  for (const std::string& list :
       {std::string(), std::string("nonsense"), std::string("[Profile0\nPath=1.a"),
        std::string("[Profile0]\nPath=\xff\xfe\n"), std::string("[P]\nPath=a\0b\n", 13), std::string(2 << 20, '#')}) {
    folder_.write(".mozilla/firefox/profiles.ini", list);
    EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / ".mozilla/firefox/1.a", running.holder()}));
  }
}

TEST_F(FirefoxesThatRun, AreFoundInALongList) {
  std::string list;
  for (int number = 0; number < 10'000; ++number)
    list += "[Profile" + std::to_string(number) + "]\nPath=" + std::to_string(number) + ".a\n";
  folder_.write(".mozilla/firefox/profiles.ini", list);
  const LockedProfile running(home_ / ".mozilla/firefox/9999.a");
  EXPECT_THAT(this->running(), ElementsAre(RunningFirefox{home_ / ".mozilla/firefox/9999.a", running.holder()}));
}

TEST_F(FirefoxesThatRun, AreLookedForInTheUsersFolders) {
  const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", "/configuration");
  EXPECT_EQ(FirefoxHome::ofUser().configuration, "/configuration");
  EXPECT_TRUE(FirefoxHome::ofUser().home.is_absolute());
}

TEST_F(FirefoxesThatRun, AreLookedForInTheUsualFolderWhereTheVariableIsOfNoUse) {
  for (const char* value : {"relative/folder", ""}) {
    const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", value);
    EXPECT_EQ(FirefoxHome::ofUser().configuration, FirefoxHome::ofUser().home / ".config") << value;
  }
}

class ProfileGivenToFirefox : public FirefoxesThatRun {
 protected:
  // The profile given to the process with these arguments: the process that has locked the profile, or another one.
  [[nodiscard]] std::optional<std::filesystem::path> givenIn(const std::vector<std::string>& arguments,
                                                             std::optional<pid_t> process = std::nullopt) const {
    std::string line;
    for (const std::string& argument : arguments)
      line += argument + '\0';
    const pid_t number = process.value_or(running_.holder());
    folder_.write(std::to_string(number) + "/cmdline", line);
    return BrowserSessions::firefoxProfileGivenTo(DesktopSupport::ProcessInfo(number, home_));
  }

  const std::string profile_ = home_ / "a profile";
  const LockedProfile running_ = LockedProfile(profile_);
};

TEST_F(ProfileGivenToFirefox, IsThatOfItsOption) {
  EXPECT_EQ(givenIn({"/usr/lib/firefox/firefox", "--no-remote", "--profile", profile_, "https://example.org"}),
            profile_);
  EXPECT_EQ(givenIn({"firefox", "-profile", profile_}), profile_);
}

TEST_F(ProfileGivenToFirefox, IsAbsentWithoutTheOptionOrItsPath) {
  EXPECT_EQ(givenIn({"firefox", profile_}), std::nullopt);
  EXPECT_EQ(givenIn({"firefox", "--profile"}), std::nullopt);
  EXPECT_EQ(givenIn({"firefox", "--profile", "a profile"}), std::nullopt) << "a relative path";
  EXPECT_EQ(givenIn({}), std::nullopt);
}

TEST_F(ProfileGivenToFirefox, IsAbsentWhereTheProcessHasNotLockedIt) {
  EXPECT_EQ(givenIn({"firefox", "--profile", profile_}, 1), std::nullopt);
  folder_.write("another/.parentlock", "");
  EXPECT_EQ(givenIn({"firefox", "--profile", home_ / "another"}), std::nullopt);
}

TEST_F(ProfileGivenToFirefox, IsAbsentInASandbox) {
  folder_.write(std::to_string(running_.holder()) + "/root/.flatpak-info", "[Application]\nname=org.mozilla.firefox\n");
  EXPECT_EQ(givenIn({"firefox", "--profile", profile_}), std::nullopt);
}

}  // namespace
