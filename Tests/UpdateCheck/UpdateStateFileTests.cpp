#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "Tests/Support/TemporaryFolder.h"
#include "UpdateCheck/UpdateStateFile.h"

namespace {

using namespace std::chrono_literals;
using UpdateCheck::UpdateState;
using UpdateCheck::UpdateStateFile;

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

TEST_F(UpdateStateFileTest, BelongsToOneCheckAtATime) {
  auto first = lock();
  ASSERT_TRUE(first && *first);
  ASSERT_TRUE((*first)->write(state));
  const auto second = lock();
  EXPECT_TRUE(second && !*second);
  EXPECT_TRUE(*lock("another.Plugin"));
  first->reset();
  EXPECT_TRUE(*lock());
}

TEST_F(UpdateStateFileTest, TakesADamagedFileAsNone) {
  folder.write("state/deskloom/com.example.Plugin.updates", "\x01\x02 garbage");
  EXPECT_EQ((*lock())->read().lastCheck, std::nullopt);
}

TEST_F(UpdateStateFileTest, TakesAFileThatIsTooLongAsNone) {
  folder.write("state/deskloom/com.example.Plugin.updates", "[Updates]\nLastCheck=5\n#" + std::string(1 << 17, 'x'));
  EXPECT_EQ((*lock())->read().lastCheck, std::nullopt);
}

TEST_F(UpdateStateFileTest, FollowsNoLinkInPlaceOfItsLock) {
  const auto path = folder.write("state/deskloom/com.example.Plugin.updates", "").string() + ".lock";
  const auto target = folder.path() / "target";
  std::filesystem::create_symlink(target, path);
  const auto locked = lock();
  ASSERT_FALSE(locked);
  EXPECT_EQ(locked.error(), "cannot use " + path + ": Too many levels of symbolic links");
  EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(UpdateStateFileTest, SaysWhereItsFolderCannotBeMade) {
  folder.write("state", "in the way");
  const auto locked = lock();
  ASSERT_FALSE(locked);
  EXPECT_TRUE(locked.error().starts_with("cannot use " + (folder.path() / "state/deskloom").string()))
      << locked.error();
}

TEST_F(UpdateStateFileTest, SaysWhereItCannotBeReplaced) {
  folder.write("state/deskloom/com.example.Plugin.updates/file", "a folder is in the way");
  EXPECT_FALSE((*lock())->write(state));
}

}  // namespace
