#include <limits>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "Tests/DeskloomSDK/ConfigProviderTest.h"

using DeskloomSDK::GlobalConfigProvider;
using DeskloomSDK::LocalConfigProvider;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace TestSupport;

namespace {

/// When a configuration is written, and what.
class ConfigWritingTest : public ConfigProviderTest {};

TEST_F(ConfigWritingTest, WritesNothingBeforeItIsAskedTo) {
  const auto provider = makeLocal("");
  provider->config.count = 3;
  pass(100);
  EXPECT_THAT(desktop.scripts.sources, IsEmpty());
}

TEST_F(ConfigWritingTest, WritesOnceASecondAfterTheLastOfABurstOfChanges) {
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

TEST_F(ConfigWritingTest, HasOneControllerForAllItsWrites) {
  const auto provider = makeLocal("");
  desktop.queues.isMainBlocked = true;
  for (int request = 0; request < 3; ++request)
    provider->save();
  pass(2);
  desktop.queues.runMainQueue();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(10), storing(10), storing(10)))
      << "each request has a check of its own, and all of them are late enough";
}

TEST_F(ConfigWritingTest, WritesTheValueOfTheTimeOfTheWriting) {
  const auto provider = makeLocal("");
  provider->config.count = 1;
  provider->save();
  provider->config.count = 2;
  pass(1);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(2)));
}

TEST_F(ConfigWritingTest, WritesTheConfigurationOfThePlugin) {
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

TEST_F(ConfigWritingTest, AFailedWriteShowsTheTitleForReadingAndKeepsTheValue) {
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

TEST_F(ConfigWritingTest, WritesAtTheEndWhetherOrNotAnythingWasChanged) {
  const auto provider = makeLocal("not JSON", {.count = 7});
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(7)));
}

TEST_F(ConfigWritingTest, WritesAtTheEndThoughNobodyHoldsIt) {
  makeLocal("");
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(10)));
}

TEST_F(ConfigWritingTest, QuittingHalfASecondAfterASaveWritesOnce) {
  const auto provider = makeLocal("");
  provider->config.count = 3;
  provider->save();
  desktop.queues.isMainBlocked = true;  // the main thread runs nothing more
  pass(0.5);
  desktop.application.terminate();
  pass(10);
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(3)));
}

TEST_F(ConfigWritingTest, AFailedWriteAtTheEndIsNotShown) {
  const auto provider = makeLocal("");
  desktop.scripts.fail(-600, "Application isn't running.");
  desktop.application.terminate();
  EXPECT_EQ(desktop.scripts.sources.size(), 1U);
  EXPECT_THAT(desktop.alerts.shown, IsEmpty());
}

TEST_F(ConfigWritingTest, OfTwoForOneActionEachWritesItsOwnValue) {
  const auto first = makeLocal("");
  const auto second = makeLocal("");
  first->config.count = 1;
  second->config.count = 2;
  desktop.application.terminate();
  EXPECT_THAT(desktop.scripts.sources, ElementsAre(storing(1), storing(2)));
}

TEST_F(ConfigWritingTest, WritesTheEmptyTextIfTheValueCannotBeEncoded) {
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

}  // namespace
