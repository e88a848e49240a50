#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "Tests/DeskloomSDK/ConfigProviderTest.h"

using DeskloomSDK::ConfigProvider;
using DeskloomSDK::GlobalConfigProvider;
using DeskloomSDK::LocalConfigProvider;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace TestSupport;

namespace {

/// A value whose conversions throw something other than a standard exception.
struct Stubborn {
  int value = 1;
};
void from_json(const nlohmann::json& /*json*/, Stubborn& /*stubborn*/) {
  throw 1;
}
void to_json(nlohmann::json& /*json*/, const Stubborn& /*stubborn*/) {
  throw 1;
}

/// A value whose fields have no initial values. Only one of them is in the JSON.
struct Bare {
  int count;
  std::array<int, 100> rest;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Bare, count)

/// A configuration with resources and with other structs.
struct Collection {
  std::vector<DeskloomSDK::Resource> resources = {};
  std::vector<Options> options = {};
  std::uint8_t small = 1;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Collection, resources, options, small)

TEST_F(ConfigProviderTest, ReadsTheConfigurationOfItsAction) {
  desktop.scripts.answerText(R"({"count":3,"kind":"images"})");
  const auto provider = LocalConfigProvider<Options>::make("A", {.count = 7});
  ASSERT_TRUE(provider);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(command("get config \"A\"")));
  EXPECT_EQ(provider->actionID(), "A");
  EXPECT_EQ(provider->config.count, 3);
  EXPECT_EQ(provider->config.kind, "images");
  EXPECT_EQ(provider->defaultConfig().count, 7);
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(ConfigProviderTest, ReadsTheConfigurationOfThePlugin) {
  desktop.scripts.answerText(R"({"count":3,"kind":"images"})");
  const auto provider = GlobalConfigProvider<Options>::make();
  ASSERT_TRUE(provider);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(command("get global config \"com.example.Plugin\"")));
  EXPECT_EQ(provider->config.count, 3);
}

TEST_F(ConfigProviderTest, FallsBackInSilenceIfTheTextIsNotSuchAValue) {
  const std::vector<std::string> texts = {
      "",
      " ",
      "{",
      "null",
      "[]",
      "\"text\"",
      R"({"count":3})",
      R"({"count":"3","kind":"all"})",
      R"({"count":3,"kind":"all"} and more)",
      "{\"count\":3,\"kind\":\"\xff\"}",
      std::string(10'000, '[') + std::string(10'000, ']'),
      std::string(10'000'000, '{'),
      R"({"count":3,"kind":"all","more":)" + std::string(10'000, '[') + std::string(10'000, ']') + "}",
      std::string(10'000'000, 'x'),
  };
  for (const std::string& text : texts) {
    EXPECT_EQ(makeLocal(text, {.count = 7})->config.count, 7) << text.substr(0, 40);
    desktop.scripts.answerText(text);
    EXPECT_EQ(GlobalConfigProvider<Options>::make()->config.count, 10) << text.substr(0, 40);
  }
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(ConfigProviderTest, FallsBackOverAMistypedNumberAndDoesNotWriteItBack) {
  for (const auto* number : {"true", "1.75", "99999999999", "1e300", "-1e300", "null", "\"3\"", "[3]", "2147483648"}) {
    const auto provider = makeLocal(R"({"count":)" + std::string(number) + R"(,"kind":"images"})", {.count = 7});
    EXPECT_EQ(provider->config.count, 7) << number;
    EXPECT_EQ(provider->config.kind, "all") << number;
    provider->save();
    pass(1);
    EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(7))) << number;
  }
  EXPECT_EQ(makeLocal(R"({"count":3.0,"kind":"images"})", {.count = 7})->config.count, 3);
}

TEST_F(ConfigProviderTest, KeepsResourcesAndOtherStructs) {
  desktop.scripts.answerText(R"({"resources":[{"type":"file","name":"n","url":"file:\/\/\/a"}],)"
                             R"("options":[{"count":3,"kind":"images"}],"small":255,"more":1.5})");
  const auto provider = LocalConfigProvider<Collection>::make("A", {});
  ASSERT_EQ(provider->config.resources.size(), 1U);
  EXPECT_EQ(provider->config.resources[0].name(), "n");
  EXPECT_EQ(provider->config.options.at(0).count, 3);
  EXPECT_EQ(provider->config.small, 255);
  provider->save();
  pass(1);
  EXPECT_THAT(desktop.scripts.sources.back(), testing::HasSubstr(R"(\"resources\":[{\"name\":\"n\",\"type\":\"file\",)"
                                                                 R"(\"url\":\"file:\\/\\/\\/a\"}],\"small\":255})"));
}

TEST_F(ConfigProviderTest, FallsBackOverAnInvalidResourceOrStruct) {
  for (const auto* text : {R"({"resources":[{"type":"link","name":"n","url":"x:y"}],"options":[],"small":2})",
                           R"({"resources":[],"options":[{"count":3.5,"kind":""}],"small":2})",
                           R"({"resources":[],"options":[],"small":256})"}) {
    desktop.scripts.answerText(text);
    EXPECT_EQ(LocalConfigProvider<Collection>::make("A", {.small = 7})->config.small, 7) << text;
  }
}

TEST_F(ConfigProviderTest, BeginsWithTheTypesValueIfAFieldIsNotInTheText) {
  for (const auto* text : {R"({"count":3})", ""}) {
    desktop.scripts.answerText(text);
    EXPECT_THAT(GlobalConfigProvider<Bare>::make()->config.rest, testing::Each(0)) << text;
  }
}

TEST_F(ConfigProviderTest, ReadsALongTextThatIsSuchAValue) {
  const std::string kind(10'000'000, 'x');
  EXPECT_EQ(makeLocal(R"({"count":3,"kind":")" + kind + "\"}")->config.kind, kind);
}

TEST_F(ConfigProviderTest, IsNotMadeIfTheHostCannotBeReachedAndTellsTheUser) {
  desktop.scripts.fail(-600, "Application isn't running.");
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  expectAlert("Could not run script");
  desktop.alerts.shown.clear();
  EXPECT_FALSE(GlobalConfigProvider<Options>::make());
  expectAlert("Could not run script");
}

TEST_F(ConfigProviderTest, IsNotMadeIfTheHostAnswersNoTextAndTellsTheUser) {
  desktop.scripts.answerNothing();
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  expectAlert("Could not read data from script output");
  desktop.application.terminate();
  EXPECT_EQ(desktop.scripts.sources.size(), 1U) << "what was not made has nothing to write";
}

TEST_F(ConfigProviderTest, TellsTheUserInTheirLanguage) {
  desktop.strings.translations = {{readTitle, "Nicht lesbar"}, {"OK", "Gut"}};
  desktop.scripts.answerNothing();
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  EXPECT_EQ(desktop.alerts.shown[0].messageText, "Nicht lesbar");
  EXPECT_THAT(desktop.alerts.shown[0].buttons, ElementsAre("Gut"));
  EXPECT_EQ(desktop.strings.comments[readTitle], "Alert title");
  EXPECT_EQ(desktop.strings.comments["OK"], "OK button title");
}

TEST_F(ConfigProviderTest, ConversionsMayThrowWhateverTheyLike) {
  desktop.scripts.answerText("{}");
  const auto provider = LocalConfigProvider<Stubborn>::make("A", {.value = 7});
  ASSERT_TRUE(provider);
  EXPECT_EQ(provider->config.value, 7);
  desktop.application.terminate();
  EXPECT_EQ(desktop.scripts.sources.back(), command(R"(set config "" action "A")"));
}

TEST_F(ConfigProviderTest, CanBeHeldWhateverItsKind) {
  desktop.scripts.answerText("");
  const std::vector<std::shared_ptr<ConfigProvider>> all = {GlobalConfigProvider<Options>::make(),
                                                            LocalConfigProvider<Measure>::make("M", {})};
  EXPECT_THAT(all, testing::Each(testing::NotNull()));
}

#ifndef NDEBUG
TEST_F(ConfigProviderTest, CannotBeMadeOffTheMainThread) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_DEATH(std::thread([] { LocalConfigProvider<Options>::make("A", {}); }).join(),
               "A configuration provider can be made on the main thread only");
}
#endif

TEST_F(ConfigProviderTest, OfThePluginNeedsABundleIdentifier) {
  desktop.bundle.entries.clear();
  EXPECT_DEATH(GlobalConfigProvider<Options>::make(), "The main bundle has no identifier");
}

TEST(ConfigAlert, HasATitleOfItsOwnForSaving) {
  const Platform::Fake::FakeServices desktop;
  const auto alert =
      DeskloomSDK::configAlert(Platform::Error("domain", 1, "why", ""), DeskloomSDK::ConfigOperation::save);
  EXPECT_EQ(alert.messageText, "Could not save action data in Deskloom.");
  EXPECT_EQ(alert.informativeText, "why");
  EXPECT_EQ(desktop.strings.comments.at("Could not save action data in Deskloom."), "Alert title");
}

}  // namespace
