#include <gtest/gtest.h>

#include "HostStandIn/ScriptingCommands.h"

namespace {

using HostStandIn::ScriptingCommands;

TEST(ScriptingCommands, KeepConfigurationByAction) {
  ScriptingCommands commands({});
  EXPECT_EQ(commands.config("A"), "");
  commands.setConfig("one", "A");
  commands.setConfig("other", "B");
  commands.setConfig("two", "A");
  EXPECT_EQ(commands.config("A"), "two");
  EXPECT_EQ(commands.config("B"), "other");
}

TEST(ScriptingCommands, KeepGlobalConfigurationApartFromThatOfActions) {
  ScriptingCommands commands({});
  commands.setGlobalConfig("global", "A");
  EXPECT_EQ(commands.config("A"), "");
  commands.setConfig("action's", "A");
  EXPECT_EQ(commands.globalConfig("A"), "global");
}

TEST(ScriptingCommands, KnowAPluginOnceItIsInstalled) {
  ScriptingCommands commands({.pluginFolder = "/plugins", .isInstalled = false, .refusesInstallation = false});
  EXPECT_FALSE(commands.isPluginInstalled());
  EXPECT_EQ(commands.pathOfPlugin("N"), std::nullopt);
  EXPECT_TRUE(commands.installPlugin());
  EXPECT_TRUE(commands.isPluginInstalled());
  EXPECT_EQ(commands.pathOfPlugin("N"), "/plugins/N");
}

TEST(ScriptingCommands, CanTakeEveryPluginForInstalled) {
  const ScriptingCommands commands({.pluginFolder = "/plugins", .isInstalled = true, .refusesInstallation = false});
  EXPECT_TRUE(commands.isPluginInstalled());
}

TEST(ScriptingCommands, CanRefuseInstallation) {
  ScriptingCommands commands({.pluginFolder = {}, .isInstalled = false, .refusesInstallation = true});
  EXPECT_FALSE(commands.installPlugin());
  EXPECT_FALSE(commands.isPluginInstalled());
}

}  // namespace
