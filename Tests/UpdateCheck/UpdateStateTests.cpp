#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/TemporaryFolder.h"
#include "UpdateCheck/UpdateState.h"

namespace {

using namespace std::chrono_literals;
using UpdateCheck::UpdateState;
using UpdateCheck::UpdateStateFile;

constexpr std::chrono::sys_seconds noon{1'700'000'000s};

UpdateState checkedAt(std::chrono::sys_seconds time) {
  return {.lastCheck = time, .announcedVersion = std::nullopt};
}

TEST(UpdateState, IsReadAsItWasWritten) {
  for (const std::string version : {"2.0", "", " 2 ", "2\n[Updates]\nLastCheck=1", "\\s;#="}) {
    const UpdateState state = UpdateState::parse(
        UpdateState{.lastCheck = noon, .lastAttempt = noon + 5s, .announcedVersion = version}.text());
    EXPECT_EQ(state.lastCheck, noon);
    EXPECT_EQ(state.lastAttempt, noon + 5s);
    EXPECT_EQ(state.announcedVersion, version);
  }
}

TEST(UpdateState, MayRememberNothing) {
  const UpdateState state = UpdateState::parse(UpdateState{}.text());
  EXPECT_EQ(state.lastCheck, std::nullopt);
  EXPECT_EQ(state.lastAttempt, std::nullopt);
  EXPECT_EQ(state.announcedVersion, std::nullopt);
}

TEST(UpdateState, IsDueIfTheTextIsDamaged) {
  for (const std::string text :
       {"", "LastCheck=1", "[Updates", "[Updates]\nLastCheck\n", "\xff\xfe", "[Updates]\n\xff=1\n"})
    EXPECT_TRUE(UpdateState::parse(text).isDue(noon, 24h)) << text;
}

TEST(UpdateState, IgnoresTimesThatAreNotNumbers) {
  for (const std::string time : {"yesterday", "-5", "1.5", "0x10"})
    EXPECT_EQ(UpdateState::parse("[Updates]\nLastCheck=" + time + "\n").lastCheck, std::nullopt) << time;
}

TEST(UpdateState, KeepsTheValidValuesOfAHalfDamagedText) {
  EXPECT_EQ(UpdateState::parse("[Updates]\nLastCheck=x\nAnnouncedVersion=2\n").announcedVersion, "2");
}

TEST(UpdateState, IsDueWhenTheIntervalHasPassed) {
  EXPECT_FALSE(checkedAt(noon).isDue(noon + 59s, 60s));
  EXPECT_TRUE(checkedAt(noon).isDue(noon + 60s, 60s));
  EXPECT_TRUE(checkedAt(noon).isDue(noon, 0s));
  EXPECT_FALSE(checkedAt(noon).isDue(noon, 1s));
}

TEST(UpdateState, IsDueIfThereHasBeenNoCheck) {
  EXPECT_TRUE(UpdateState{}.isDue(noon, 24h));
}

TEST(UpdateState, IsDueSoonAfterAFailedAttempt) {
  const UpdateState state{.lastCheck = noon - 24h, .lastAttempt = noon, .announcedVersion = std::nullopt};
  EXPECT_FALSE(state.isDue(noon + 15min - 1s, 24h));
  EXPECT_TRUE(state.isDue(noon + 15min, 24h));
  EXPECT_FALSE(state.isDue(noon + 59s, 60s)) << "the interval is shorter";
  EXPECT_TRUE(state.isDue(noon + 60s, 60s));
}

TEST(UpdateState, IsNotDueBeforeTheIntervalHasPassedEvenIfAnAttemptWasMade) {
  const UpdateState state{.lastCheck = noon, .lastAttempt = noon - 15min, .announcedVersion = std::nullopt};
  EXPECT_FALSE(state.isDue(noon + 24h - 1s, 24h));
}

TEST(UpdateState, IsDueIfTheLastCheckIsInTheFuture) {
  EXPECT_TRUE(checkedAt(noon + 1s).isDue(noon, 24h));
  const UpdateState attempted{.lastCheck = std::nullopt, .lastAttempt = noon + 1s, .announcedVersion = std::nullopt};
  EXPECT_TRUE(attempted.isDue(noon, 24h));
  EXPECT_TRUE(UpdateState::parse("[Updates]\nLastCheck=99999999999999999999999\n").isDue(noon, 24h));
}

TEST(UpdateState, CountsAnotherSpellingOfTheVersionAsAnnounced) {
  const UpdateState state{.lastCheck = noon, .announcedVersion = "2.0"};
  EXPECT_TRUE(state.hasAnnounced("2.0"));
  EXPECT_TRUE(state.hasAnnounced("2.0.0"));
  EXPECT_FALSE(state.hasAnnounced("2.1"));
  EXPECT_FALSE(UpdateState{}.hasAnnounced("0"));
}

class UpdateStateFileTest : public testing::Test {
 protected:
  [[nodiscard]] auto lock(const std::string& identifier = "com.example.Plugin") const {
    return UpdateStateFile::lock(folder.path() / "state" / "deskloom", identifier);
  }

  TestSupport::TemporaryFolder folder;
  const UpdateState state{.lastCheck = std::chrono::sys_seconds(5s), .announcedVersion = "2.0"};
};

TEST_F(UpdateStateFileTest, KeepsTheState) {
  ASSERT_TRUE((*lock())->write(state));
  const UpdateState read = (*lock())->read();
  EXPECT_EQ(read.lastCheck, state.lastCheck);
  EXPECT_EQ(read.announcedVersion, state.announcedVersion);
}

TEST_F(UpdateStateFileTest, IsEmptyAtFirst) {
  EXPECT_EQ((*lock())->read().lastCheck, std::nullopt);
}

TEST_F(UpdateStateFileTest, IsNamedAfterTheIdentifier) {
  ASSERT_TRUE((*lock("org.example.Other"))->write(state));
  EXPECT_TRUE(std::filesystem::is_regular_file(folder.path() / "state/deskloom/org.example.Other.updates"));
}

TEST_F(UpdateStateFileTest, IsLockedForOneCheckAtATime) {
  auto first = lock();
  ASSERT_TRUE(first && *first);
  ASSERT_TRUE((*first)->write(state));
  const auto second = lock();
  EXPECT_TRUE(second && !*second);
  EXPECT_TRUE(*lock("another.Plugin"));
  first->reset();
  EXPECT_TRUE(*lock());
}

TEST_F(UpdateStateFileTest, CountsADamagedFileAsMissing) {
  folder.write("state/deskloom/com.example.Plugin.updates", "\x01\x02 garbage");
  EXPECT_EQ((*lock())->read().lastCheck, std::nullopt);
}

TEST_F(UpdateStateFileTest, CountsAFileThatIsTooLongAsMissing) {
  folder.write("state/deskloom/com.example.Plugin.updates", "[Updates]\nLastCheck=5\n#" + std::string(1 << 17, 'x'));
  EXPECT_EQ((*lock())->read().lastCheck, std::nullopt);
}

TEST_F(UpdateStateFileTest, FollowsNoSymbolicLinkAsItsLock) {
  const auto path = folder.write("state/deskloom/com.example.Plugin.updates", "").string() + ".lock";
  const auto target = folder.path() / "target";
  std::filesystem::create_symlink(target, path);
  const auto locked = lock();
  ASSERT_FALSE(locked);
  EXPECT_EQ(locked.error(), "cannot use " + path + ": Too many levels of symbolic links");
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(UpdateStateFileTest, SaysThatItsFolderCannotBeMade) {
  folder.write("state", "in the way");
  const auto locked = lock();
  ASSERT_FALSE(locked);
  EXPECT_TRUE(locked.error().starts_with("cannot use " + (folder.path() / "state/deskloom").string()))
      << locked.error();
}

TEST_F(UpdateStateFileTest, FailsIfItCannotBeReplaced) {
  folder.write("state/deskloom/com.example.Plugin.updates/file", "a folder is in the way");
  EXPECT_FALSE((*lock())->write(state));
}

}  // namespace
