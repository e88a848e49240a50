#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "Linux/LinuxBundle.h"
#include "Tests/Support/TemporaryFolder.h"

using Platform::Linux::LinuxBundle;
using testing::HasSubstr;

namespace {

class LinuxBundleTest : public testing::Test {
 protected:
  void write(std::string_view information) { folder.write("Info.ini", information); }

  /// What is written to standard error when the bundle is read, which must say nothing of itself.
  std::string complaint() {
    testing::internal::CaptureStderr();
    const LinuxBundle bundle(folder.path());
    EXPECT_EQ(bundle.identifier(), std::nullopt);
    return testing::internal::GetCapturedStderr();
  }

  TestSupport::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "Info.ini";
};

TEST_F(LinuxBundleTest, SaysWhatItsInformationSays) {
  write("[Bundle]\nIdentifier=com.example.Plugin\nVersion=1.2\n");
  const LinuxBundle bundle(folder.path());
  EXPECT_EQ(bundle.path(), folder.path());
  EXPECT_EQ(bundle.identifier(), "com.example.Plugin");
  EXPECT_EQ(bundle.information("Version"), "1.2");
}

TEST_F(LinuxBundleTest, HasNoIdentifierWithoutInformation) {
  EXPECT_EQ(LinuxBundle(folder.path()).identifier(), std::nullopt);
}

TEST_F(LinuxBundleTest, HasNoIdentifierWhereTheInformationIsBrokenOrSaysNone) {
  for (const auto* information : {"", "rubbish", "[Bundle\nIdentifier=x", "[Other]\nIdentifier=x\n",
                                  "[Bundle]\nIdentifier=\n", "[Bundle]\nName=x\n"}) {
    write(information);
    EXPECT_EQ(LinuxBundle(folder.path()).identifier(), std::nullopt) << information;
  }
}

TEST_F(LinuxBundleTest, HasTheGroupsOfItsInformation) {
  write("# Written by hand.\n\n[Bundle]\nName=Plug-in\n[Updates]\nFeedURL = https://example.com/feed\nName=Other\n");
  const LinuxBundle bundle(folder.path());
  EXPECT_EQ(bundle.information("Name"), "Plug-in");
  EXPECT_EQ(bundle.value("Updates", "FeedURL"), "https://example.com/feed");
  EXPECT_EQ(bundle.value("Bundle", "FeedURL"), std::nullopt);
  EXPECT_EQ(bundle.value("None", "Name"), std::nullopt);
}

TEST_F(LinuxBundleTest, HasItsInformationWhereverItIsMoved) {
  write("[Bundle]\nName=x\n");  // a text that lies in the object itself
  LinuxBundle bundle(folder.path());
  const LinuxBundle moved(std::move(bundle));
  EXPECT_EQ(moved.information("Name"), "x");
}

TEST_F(LinuxBundleTest, DoesNotWaitForTheWriterOfAPipe) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(LinuxBundleTest, DoesNotReadInformationThatNeverEnds) {
  std::filesystem::create_symlink("/dev/zero", file);
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(LinuxBundleTest, DoesNotReadInformationThatIsFarTooLarge) {
  write("[Bundle]\nIdentifier=com.example.Plugin\n");
  std::filesystem::resize_file(file, 1UL << 40U);  // takes no room on disk
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(LinuxBundleTest, SaysThatItsInformationIsBroken) {
  write("[Bundle]\nIdentifier\n");
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(LinuxBundleTest, SaysNothingWhereThereIsNoInformation) {
  EXPECT_EQ(complaint(), "");
}

TEST_F(LinuxBundleTest, IsTheDirectoryOfTheRunningExecutable) {
  EXPECT_EQ(LinuxBundle().path(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

}  // namespace
