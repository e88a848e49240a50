#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrowserSessions/FirefoxProfiles.h"
#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using BrowserSessions::FirefoxHome;
using BrowserSessions::Testing::LockedProfile;
using testing::ElementsAre;
using testing::IsEmpty;

class FirefoxProfiles : public testing::Test {
 protected:
  [[nodiscard]] std::vector<std::filesystem::path> running() const {
    return BrowserSessions::runningFirefoxProfiles({.home = home_, .configuration = home_ / ".config"});
  }

  TestSupport::TemporaryFolder folder_;
  const std::filesystem::path home_ = std::filesystem::canonical(folder_.path());
};

TEST_F(FirefoxProfiles, AreThoseThatAreLocked) {
  folder_.write(".mozilla/firefox/profiles.ini",
                "[General]\nStartWithLastProfile=1\n[Profile0]\nName=a\nIsRelative=1\nPath=1.a\nDefault=1\n"
                "[Profile1]\nName=b\nIsRelative=1\nPath=2.b\n");
  folder_.write(".mozilla/firefox/1.a/.parentlock", "");
  const LockedProfile running(home_ / ".mozilla/firefox/2.b");
  EXPECT_THAT(this->running(), ElementsAre(home_ / ".mozilla/firefox/2.b"));
}

TEST_F(FirefoxProfiles, AreNoneWhereNoneRuns) {
  EXPECT_THAT(running(), IsEmpty());
  folder_.write(".mozilla/firefox/1.a/.parentlock", "");
  folder_.write(".mozilla/firefox/profiles.ini", "[Profile0]\nPath=1.a\n[Profile1]\nPath=gone\n");
  EXPECT_THAT(running(), IsEmpty());
}

TEST_F(FirefoxProfiles, AreFoundInEveryLocation) {
  for (const char* location :
       {".mozilla/firefox", ".config/mozilla/firefox", ".var/app/org.mozilla.firefox/.mozilla/firefox",
        ".var/app/org.mozilla.firefox/config/mozilla/firefox", "snap/firefox/common/.mozilla/firefox"}) {
    const LockedProfile running(home_ / location / "1.a");
    EXPECT_THAT(this->running(), ElementsAre(home_ / location / "1.a"));
  }
}

TEST_F(FirefoxProfiles, MayBeSeveral) {
  const LockedProfile first(home_ / ".mozilla/firefox/1.a");
  const LockedProfile second(home_ / ".mozilla/firefox/2.b");
  const LockedProfile third(home_ / "snap/firefox/common/.mozilla/firefox/3.c");
  EXPECT_THAT(running(), ElementsAre(home_ / ".mozilla/firefox/1.a", home_ / ".mozilla/firefox/2.b",
                                     home_ / "snap/firefox/common/.mozilla/firefox/3.c"));
}

TEST_F(FirefoxProfiles, MayBeElsewhere) {
  const LockedProfile running(home_ / "elsewhere/a b=c");
  folder_.write(".mozilla/firefox/profiles.ini",
                "[Profile0]\nIsRelative=0\nPath=" + (home_ / "elsewhere/a b=c").string() + "\n");
  EXPECT_THAT(this->running(), ElementsAre(home_ / "elsewhere/a b=c"));
}

TEST_F(FirefoxProfiles, AreThereOnceOnWhicheverWaysTheyAreReached) {
  const LockedProfile running(home_ / ".mozilla/firefox/1.a");
  folder_.write(".mozilla/firefox/profiles.ini", "[Profile0]\nIsRelative=1\nPath=1.a\n[Profile1]\nPath=./1.a/\n");
  std::filesystem::create_directories(home_ / ".config");
  std::filesystem::create_symlink(home_ / ".mozilla", home_ / ".config/mozilla");
  EXPECT_THAT(this->running(), ElementsAre(home_ / ".mozilla/firefox/1.a"));
}

TEST_F(FirefoxProfiles, AreFoundWithoutAListThatCanBeRead) {
  const LockedProfile running(home_ / ".mozilla/firefox/1.a");
  for (const std::string& list :
       {std::string(), std::string("nonsense"), std::string("[Profile0\nPath=1.a"),
        std::string("[Profile0]\nPath=\xff\xfe\n"), std::string("[P]\nPath=a\0b\n", 13), std::string(2 << 20, '#')}) {
    folder_.write(".mozilla/firefox/profiles.ini", list);
    EXPECT_THAT(this->running(), ElementsAre(home_ / ".mozilla/firefox/1.a"));
  }
}

TEST_F(FirefoxProfiles, AreFoundInALongList) {
  std::string list;
  for (int number = 0; number < 10'000; ++number)
    list += "[Profile" + std::to_string(number) + "]\nPath=" + std::to_string(number) + ".a\n";
  folder_.write(".mozilla/firefox/profiles.ini", list);
  const LockedProfile running(home_ / ".mozilla/firefox/9999.a");
  EXPECT_THAT(this->running(), ElementsAre(home_ / ".mozilla/firefox/9999.a"));
}

TEST_F(FirefoxProfiles, AreLookedForInTheUsersFolders) {
  const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", "/configuration");
  EXPECT_EQ(FirefoxHome::ofUser().configuration, "/configuration");
  EXPECT_TRUE(FirefoxHome::ofUser().home.is_absolute());
}

TEST_F(FirefoxProfiles, AreLookedForInTheUsualFolderWhereTheVariableIsOfNoUse) {
  for (const char* value : {"relative/folder", ""}) {
    const TestSupport::EnvironmentVariable configuration("XDG_CONFIG_HOME", value);
    EXPECT_EQ(FirefoxHome::ofUser().configuration, FirefoxHome::ofUser().home / ".config") << value;
  }
}

class ProfileGivenToFirefox : public FirefoxProfiles {
 protected:
  [[nodiscard]] std::optional<std::filesystem::path> givenIn(const std::vector<std::string>& arguments) const {
    std::string line;
    for (const std::string& argument : arguments)
      line += argument + '\0';
    folder_.write("42/cmdline", line);
    return BrowserSessions::firefoxProfileGivenTo(DesktopSupport::ProcessInfo(42, home_));
  }
};

TEST_F(ProfileGivenToFirefox, IsThatOfItsOption) {
  const std::string profile = home_ / "a profile";
  const LockedProfile running(profile);
  EXPECT_EQ(givenIn({"/usr/lib/firefox/firefox", "--no-remote", "--profile", profile, "https://example.org"}), profile);
  EXPECT_EQ(givenIn({"firefox", "-profile", profile}), profile);
}

TEST_F(ProfileGivenToFirefox, IsAbsentWithoutTheOptionOrItsPath) {
  const std::string profile = home_ / "a profile";
  const LockedProfile running(profile);
  EXPECT_EQ(givenIn({"firefox", profile}), std::nullopt);
  EXPECT_EQ(givenIn({"firefox", "--profile"}), std::nullopt);
  EXPECT_EQ(givenIn({"firefox", "--profile", "a profile"}), std::nullopt) << "a relative path";
  EXPECT_EQ(givenIn({}), std::nullopt);
}

TEST_F(ProfileGivenToFirefox, IsAbsentWhereNobodyHasLockedIt) {
  folder_.write("a profile/.parentlock", "");
  EXPECT_EQ(givenIn({"firefox", "--profile", home_ / "a profile"}), std::nullopt);
}

TEST_F(ProfileGivenToFirefox, IsAbsentInASandbox) {
  const std::string profile = home_ / "a profile";
  const LockedProfile running(profile);
  folder_.write("42/root/.flatpak-info", "[Application]\nname=org.mozilla.firefox\n");
  EXPECT_EQ(givenIn({"firefox", "--profile", profile}), std::nullopt);
}

}  // namespace
