#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/System/UserFolders.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using namespace DesktopSupport;
using std::filesystem::path;
using testing::ElementsAre;
using TestSupport::EnvironmentVariable;

// The user's folders, each with its variable and its default.
struct UserFolder {
  path (*folder)();
  const char* variable;
  const char* inHome;
};

constexpr UserFolder userFolders[] = {
    {userConfigurationFolder, "XDG_CONFIG_HOME", ".config"},
    {userDataFolder, "XDG_DATA_HOME", ".local/share"},
    {userStateFolder, "XDG_STATE_HOME", ".local/state"},
};

TEST(UserFolders, AreThoseInTheEnvironment) {
  for (const UserFolder& each : userFolders) {
    const EnvironmentVariable variable(each.variable, "/somewhere");
    EXPECT_EQ(each.folder(), "/somewhere") << each.variable;
  }
}

TEST(UserFolders, AreInTheHomeFolderIfTheEnvironmentNamesNoAbsoluteFolder) {
  for (const UserFolder& each : userFolders)
    for (const std::optional<std::string>& value : {std::optional<std::string>(), std::optional<std::string>(""),
                                                    std::optional<std::string>("relative/folder")}) {
      const EnvironmentVariable variable(each.variable, value);
      EXPECT_EQ(each.folder(), homeFolder() / each.inHome) << each.variable << '=' << value.value_or("(unset)");
    }
}

TEST(UserFolders, ComeBeforeTheSystemsWhenSomethingIsSearched) {
  const EnvironmentVariable configuration("XDG_CONFIG_HOME", "/own");
  const EnvironmentVariable configurations("XDG_CONFIG_DIRS", "/b:/a");
  EXPECT_THAT(configurationFolders(), ElementsAre("/own", "/b", "/a"));
  const EnvironmentVariable data("XDG_DATA_HOME", "/data");
  const EnvironmentVariable datas("XDG_DATA_DIRS", "::relative/folder:/a:");
  EXPECT_THAT(dataFolders(), ElementsAre("/data", "/a")) << "without empty and relative ones";
}

TEST(UserFolders, ComeBeforeTheUsualOnesOfTheSystem) {
  for (const std::optional<std::string>& nothing : {std::optional<std::string>(), std::optional<std::string>("")}) {
    const EnvironmentVariable configuration("XDG_CONFIG_HOME", "/own");
    const EnvironmentVariable configurations("XDG_CONFIG_DIRS", nothing);
    EXPECT_THAT(configurationFolders(), ElementsAre("/own", "/etc/xdg"));
    const EnvironmentVariable data("XDG_DATA_HOME", "/own");
    const EnvironmentVariable datas("XDG_DATA_DIRS", nothing);
    EXPECT_THAT(dataFolders(), ElementsAre("/own", "/usr/local/share", "/usr/share"));
  }
}

}  // namespace
