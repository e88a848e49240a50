#include <cstdlib>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "HostStandIn/Options.h"

namespace {

using HostStandIn::Options;

std::expected<Options, std::string> parse(std::initializer_list<std::string_view> arguments, Options defaults = {}) {
  return Options::parse(std::vector<std::string_view>(arguments), std::move(defaults));
}

TEST(Options, AreTheDefaultsWithoutArguments) {
  Options defaults;
  defaults.log = "/log";
  defaults.setup.pluginFolder = "/plugins";
  const auto options = parse({}, defaults);
  ASSERT_TRUE(options);
  EXPECT_EQ(options->log, "/log");
  EXPECT_EQ(options->setup.pluginFolder, "/plugins");
  EXPECT_FALSE(options->exitAfter);
  EXPECT_FALSE(options->decode || options->help || options->wantsVersion || options->setup.isInstalled ||
               options->setup.refusesInstallation);
}

TEST(Options, AreWhatTheArgumentsSay) {
  const auto options = parse({"--decode", "--exit-after", "12", "--log", "l", "--plugin-folder", "--p", "--installed",
                              "--refuse-installation", "--help", "--version"});
  ASSERT_TRUE(options);
  EXPECT_TRUE(options->decode && options->help && options->wantsVersion && options->setup.isInstalled &&
              options->setup.refusesInstallation);
  EXPECT_EQ(options->exitAfter, 12U);
  EXPECT_EQ(options->log, "l");
  EXPECT_EQ(options->setup.pluginFolder, "--p");
}

TEST(Options, RefuseWhatTheyDoNotKnow) {
  EXPECT_EQ(parse({"--decoded"}).error(), "Unknown option --decoded");
  EXPECT_EQ(parse({"deskloom://x"}).error(), "Unexpected argument deskloom://x");
  EXPECT_FALSE(parse({""}));
}

TEST(Options, RefuseAMissingValue) {
  EXPECT_EQ(parse({"--log"}).error(), "Missing argument for --log");
  EXPECT_EQ(parse({"--plugin-folder", ""}).error(), "Invalid value \"\" for --plugin-folder");
  EXPECT_FALSE(parse({"--log", ""}));
}

TEST(Options, LeaveAfterAPositiveNumber) {
  for (const std::string_view number : {"0", "-1", "1x", " 1", "x", "99999999999999999999999"})
    EXPECT_FALSE(parse({"--exit-after", number})) << number;
}

TEST(Options, TakeTheLogFromTheEnvironment) {
  setenv("DESKLOOM_HOST_LOG", "/named", 1);
  EXPECT_EQ(Options::fromEnvironment().log, "/named");
  setenv("DESKLOOM_HOST_LOG", "", 1);
  EXPECT_FALSE(Options::fromEnvironment().log);
  unsetenv("DESKLOOM_HOST_LOG");
  EXPECT_FALSE(Options::fromEnvironment().log);
}

TEST(Options, KeepPluginsInTheUsersDataFolder) {
  EXPECT_TRUE(Options::fromEnvironment().setup.pluginFolder.ends_with("/deskloom/plugins"));
}

TEST(Options, AreAllInTheHelp) {
  const std::string help = parse({"--help"}).value().help.value();
  for (const char* name : {"--decode", "--exit-after=N", "--log=FILE", "--plugin-folder=PATH", "--installed",
                           "--refuse-installation", "--help", "--version"})
    EXPECT_NE(help.find(name), std::string::npos) << name;
}

}  // namespace
