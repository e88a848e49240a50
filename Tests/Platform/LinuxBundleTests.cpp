#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "Platform/Linux/LinuxBundle.h"
#include "Tests/Support/TemporaryFolder.h"

using Platform::Linux::LinuxBundle;

namespace {

class LinuxBundleTest : public testing::Test {
 protected:
  void write(std::string_view information) { folder.write("Info.ini", information); }

  TestSupport::TemporaryFolder folder;
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

TEST_F(LinuxBundleTest, IsTheDirectoryOfTheRunningExecutable) {
  EXPECT_EQ(LinuxBundle().path(), std::filesystem::read_symlink("/proc/self/exe").parent_path());
}

}  // namespace
