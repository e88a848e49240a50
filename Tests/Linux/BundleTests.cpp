#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include "Linux/Bundle.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::HasSubstr;

namespace {

class BundleTest : public testing::Test {
 protected:
  void write(std::string_view information) { folder.write("Info.ini", information); }

  /// What is written to standard error when the bundle is read. The bundle must then count as empty.
  std::string complaint() {
    testing::internal::CaptureStderr();
    const Linux::Bundle bundle(folder.path());
    EXPECT_EQ(bundle.identifier(), std::nullopt);
    return testing::internal::GetCapturedStderr();
  }

  TestSupport::TemporaryFolder folder;
  const std::filesystem::path file = folder.path() / "Info.ini";
};

TEST_F(BundleTest, SaysWhatItsInformationSays) {
  write("[Bundle]\nIdentifier=com.example.Plugin\nVersion=1.2\n");
  const Linux::Bundle bundle(folder.path());
  EXPECT_EQ(bundle.path(), folder.path());
  EXPECT_EQ(bundle.identifier(), "com.example.Plugin");
  EXPECT_EQ(bundle.information("Version"), "1.2");
}

TEST_F(BundleTest, HasNoIdentifierWithoutInformation) {
  EXPECT_EQ(Linux::Bundle(folder.path()).identifier(), std::nullopt);
}

TEST_F(BundleTest, HasNoIdentifierIfTheInformationIsBrokenOrHasNone) {
  for (const auto* information : {"", "rubbish", "[Bundle\nIdentifier=x", "[Other]\nIdentifier=x\n",
                                  "[Bundle]\nIdentifier=\n", "[Bundle]\nName=x\n"}) {
    write(information);
    EXPECT_EQ(Linux::Bundle(folder.path()).identifier(), std::nullopt) << information;
  }
}

TEST_F(BundleTest, HasTheGroupsOfItsInformation) {
  write("# Written by hand.\n\n[Bundle]\nName=Plug-in\n[Updates]\nFeedURL = https://example.com/feed\nName=Other\n");
  const Linux::Bundle bundle(folder.path());
  EXPECT_EQ(bundle.information("Name"), "Plug-in");
  EXPECT_EQ(bundle.value("Updates", "FeedURL"), "https://example.com/feed");
  EXPECT_EQ(bundle.value("Bundle", "FeedURL"), std::nullopt);
  EXPECT_EQ(bundle.value("None", "Name"), std::nullopt);
}

TEST_F(BundleTest, HasItsInformationWhereverItIsMoved) {
  write("[Bundle]\nName=x\n");  // short enough to be stored in the string object
  Linux::Bundle bundle(folder.path());
  const Linux::Bundle moved(std::move(bundle));
  EXPECT_EQ(moved.information("Name"), "x");
}

TEST_F(BundleTest, DoesNotWaitForTheWriterOfAPipe) {
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(BundleTest, DoesNotReadInformationThatNeverEnds) {
  std::filesystem::create_symlink("/dev/zero", file);
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(BundleTest, DoesNotReadInformationThatIsFarTooLarge) {
  write("[Bundle]\nIdentifier=com.example.Plugin\n");
  std::filesystem::resize_file(file, 1UL << 40U);  // takes no room on disk
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(BundleTest, LogsThatItsInformationIsBroken) {
  write("[Bundle]\nIdentifier\n");
  EXPECT_THAT(complaint(), HasSubstr(file.string()));
}

TEST_F(BundleTest, LogsNothingIfThereIsNoInformation) {
  EXPECT_EQ(complaint(), "");
}

TEST_F(BundleTest, IsTheDirectoryOfTheRunningExecutable) {
  EXPECT_EQ(Linux::Bundle().path(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

}  // namespace
