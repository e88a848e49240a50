#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Fake/FakeServices.h"

using DeskloomSDK::ConfigProvider;
using DeskloomSDK::GlobalConfigProvider;
using DeskloomSDK::LocalConfigProvider;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Options {
  int count = 10;
  std::string kind = "all";
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count, kind)

struct Measure {
  double length = 1;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Measure, length)

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

const std::string readTitle = "Could not read action data in Deskloom.";

std::string command(const std::string& text) {
  return "    tell application \"Deskloom\" to " + text;
}

/// The script that stores Options of this count for the action "A".
std::string storing(int count, const std::string& kind = "all") {
  return command(R"(set config "{\"count\":)" + std::to_string(count) + R"(,\"kind\":\")" + kind +
                 R"(\"}" action "A")");
}

class ConfigProviderTest : public testing::Test {
 protected:
  using Local = std::shared_ptr<LocalConfigProvider<Options>>;

  /// A provider for the action "A", whose text in the host is `text`.
  Local makeLocal(const std::string& text, Options defaultConfig = {}) {
    desktop.scripts.answerText(text);
    auto provider = LocalConfigProvider<Options>::make("A", std::move(defaultConfig));
    desktop.scripts.answerNothing();
    desktop.scripts.sources.clear();
    return provider;
  }

  void pass(double seconds) { desktop.queues.advance(std::chrono::duration<double>(seconds)); }

  void expectAlert(const std::string& reason) {
    ASSERT_EQ(desktop.alerts.shown.size(), 1U);
    const Platform::Alert& alert = desktop.alerts.shown[0];
    EXPECT_EQ(alert.messageText, readTitle);
    EXPECT_EQ(alert.informativeText, reason);
    EXPECT_THAT(alert.buttons, ElementsAre("OK"));
  }

  Platform::Fake::FakeServices desktop;
};

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

TEST_F(ConfigProviderTest, WritesNothingBeforeItIsAskedTo) {
  const auto provider = makeLocal("");
  provider->config.count = 3;
  pass(100);
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
}

TEST_F(ConfigProviderTest, WritesOnceASecondAfterTheLastOfABurstOfChanges) {
  const auto provider = makeLocal("");
  for (int count = 1; count <= 5; ++count) {
    provider->config.count = count;
    provider->save();
    pass(0.9);
  }
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
  pass(0.1);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(5)));
  pass(100);
  EXPECT_EQ(desktop.scripts.sources.size(), 1U);
}

TEST_F(ConfigProviderTest, HasOneControllerForAllItsWrites) {
  const auto provider = makeLocal("");
  desktop.queues.isMainBlocked = true;
  for (int request = 0; request < 3; ++request)
    provider->save();
  pass(2);
  desktop.queues.runMainQueue();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(10), storing(10), storing(10)))
      << "each request has a check of its own, and all of them are late enough";
}

TEST_F(ConfigProviderTest, WritesTheValueOfTheTimeOfTheWriting) {
  const auto provider = makeLocal("");
  provider->config.count = 1;
  provider->save();
  provider->config.count = 2;
  pass(1);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(2)));
}

TEST_F(ConfigProviderTest, WritesTheConfigurationOfThePlugin) {
  desktop.scripts.answerText("");
  const auto provider = GlobalConfigProvider<Options>::make();
  desktop.scripts.sources.clear();
  provider->config.kind = "a/b \"c\" \\ \n";
  provider->save();
  pass(1);
  EXPECT_THAT(desktop.scripts.sources,
              ElementsAre(command(R"(set global config "{\"count\":10,\"kind\":\"a\\/b \\\"c\\\" \\\\ \\n\"}")"
                                  R"( action bundle id "com.example.Plugin")")));
}

TEST_F(ConfigProviderTest, AFailedWriteShowsTheTitleForReadingAndKeepsTheValue) {
  const auto provider = makeLocal("");
  desktop.scripts.fail(-600, "Application isn't running.");
  provider->config.count = 3;
  provider->save();
  pass(1);
  expectAlert("Could not run script");
  EXPECT_EQ(provider->config.count, 3);
  pass(100);
  EXPECT_EQ(desktop.scripts.sources.size(), 1U) << "nothing is tried again by itself";

  desktop.scripts.answerNothing();
  provider->save();
  pass(1);
  EXPECT_EQ(desktop.scripts.sources.back(), storing(3));
}

TEST_F(ConfigProviderTest, WritesAtTheEndWhetherOrNotAnythingWasChanged) {
  const auto provider = makeLocal("not JSON", {.count = 7});
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(7)));
}

TEST_F(ConfigProviderTest, WritesAtTheEndThoughNobodyHoldsIt) {
  makeLocal("");
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(10)));
}

TEST_F(ConfigProviderTest, QuittingHalfASecondAfterASaveWritesOnce) {
  const auto provider = makeLocal("");
  provider->config.count = 3;
  provider->save();
  desktop.queues.isMainBlocked = true;  // the main thread runs nothing more
  pass(0.5);
  desktop.application.terminate();
  pass(10);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(3)));
}

TEST_F(ConfigProviderTest, AFailedWriteAtTheEndIsNotShown) {
  const auto provider = makeLocal("");
  desktop.scripts.fail(-600, "Application isn't running.");
  desktop.application.terminate();
  EXPECT_EQ(desktop.scripts.sources.size(), 1U);
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(ConfigProviderTest, OfTwoForOneActionEachWritesItsOwnValue) {
  const auto first = makeLocal("");
  const auto second = makeLocal("");
  first->config.count = 1;
  second->config.count = 2;
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(1), storing(2)));
}

TEST_F(ConfigProviderTest, WritesTheEmptyTextIfTheValueCannotBeEncoded) {
  const auto provider = makeLocal("");
  provider->config.kind = "\xff";
  provider->save();
  pass(1);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(command(R"(set config "" action "A")")));

  desktop.scripts.answerText("");
  desktop.scripts.sources.clear();
  const auto measure = LocalConfigProvider<Measure>::make("M", {});
  for (const double number : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    measure->config.length = number;
    measure->save();
    pass(1);
    EXPECT_EQ(desktop.scripts.sources.back(), command(R"(set config "" action "M")"));
  }
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
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
