// Configuration providers with a real host on the real bus.

#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/GlobalConfigProvider.h"
#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "Tests/EndToEnd/ConfiguredPlugin.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/HostProcess.h"

using DeskloomSDK::DeskloomAPI;
using DeskloomSDK::GlobalConfigProvider;
using DeskloomSDK::LocalConfigProvider;
using nlohmann::json;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::FakeDeskloomHost;
using TestSupport::HostProcess;

namespace {

struct Options {
  int count = 10;
  std::string kind = "all";

  bool operator==(const Options&) const = default;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count, kind)

/// A configuration of any shape.
struct Anything {
  json value;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Anything, value)

constexpr const char* noScript = "Could not run script";
constexpr const char* noOutput = "Could not read data from script output";

class ConfigurationTest : public ConfiguredPluginTest {
 protected:
  std::string stored(const std::string& actionID) { return DeskloomAPI().getConfig(actionID).value_or("no text"); }
};

TEST_F(ConfigurationTest, OfAnActionIsThereAgainForTheNextProvider) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto first = LocalConfigProvider<Options>::make("A", {.count = 7});
  ASSERT_TRUE(first);
  EXPECT_EQ(first->config, (Options{.count = 7})) << "nothing was stored yet";
  first->config = {.count = 3, .kind = "images/\"png\"\\\n🙂"};
  quit();
  const auto second = LocalConfigProvider<Options>::make("A", {.count = 7});
  EXPECT_EQ(second->config, first->config);
  EXPECT_EQ(LocalConfigProvider<Options>::make("B", {.count = 8})->config.count, 8);
  EXPECT_THAT(alerts.shown, IsEmpty());
}

TEST_F(ConfigurationTest, OfThePluginIsThereAgainForTheNextProvider) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto first = GlobalConfigProvider<Options>::make();
  first->config.kind = "documents";
  quit();
  EXPECT_EQ(GlobalConfigProvider<Options>::make()->config.kind, "documents");
}

TEST_F(ConfigurationTest, IsWrittenASecondAfterItWasChanged) {
  FakeDeskloomHost host;
  host.answer("GetConfig", "(true, '')");
  bool wasWritten = false;
  host.answer("SetConfig", [&](GDBusMethodInvocation* invocation) {
    g_dbus_method_invocation_return_value(invocation, nullptr);
    desktop.queues.runOnMain([&] { wasWritten = true; });
  });
  const auto provider = LocalConfigProvider<Options>::make("A", {});
  for (int count = 1; count <= 5; ++count) {
    provider->config.count = count;
    provider->save();
  }
  runUntil([&] { return wasWritten; });
  EXPECT_EQ(host.calls().back(), R"(SetConfig('{"count":5,"kind":"all"}', 'A'))");
}

TEST_F(ConfigurationTest, QuittingSoonAfterASaveWritesIt) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto provider = LocalConfigProvider<Options>::make("A", {});
  provider->config.count = 3;
  provider->save();
  quit();
  EXPECT_EQ(stored("A"), R"({"count":3,"kind":"all"})");
}

TEST_F(ConfigurationTest, CannotBeReadWithoutAHost) {
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  expectReadAlert(awaitAlert(), noScript);
  EXPECT_FALSE(GlobalConfigProvider<Options>::make());
  expectReadAlert(awaitAlert(), noScript);
}

TEST_F(ConfigurationTest, CannotBeReadFromAHostThatAnswersNoTextOrRefuses) {
  FakeDeskloomHost host;
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {})) << "refused";
  expectReadAlert(awaitAlert(), noScript);
  host.answer("GetConfig", "(false, '')");
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  expectReadAlert(awaitAlert(), noOutput);
  host.answerUnchecked("GetConfig", "(42,)");
  EXPECT_FALSE(LocalConfigProvider<Options>::make("A", {}));
  expectReadAlert(awaitAlert(), noScript);
}

TEST_F(ConfigurationTest, FallsBackIfTheHostsTextIsNoSuchValue) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const std::vector<std::string> texts = {"", "{\"count\":", R"({"count":"many","kind":"all"})",
                                          std::string(10'000, '[') + std::string(10'000, ']'),
                                          std::string(10'000'000, 'x')};
  for (const std::string& text : texts) {
    ASSERT_TRUE(DeskloomAPI().setConfig(text, "A"));
    const auto provider = LocalConfigProvider<Options>::make("A", {.count = 7});
    ASSERT_TRUE(provider) << text.substr(0, 40);
    EXPECT_EQ(provider->config.count, 7) << text.substr(0, 40);
  }
  EXPECT_THAT(alerts.shown, IsEmpty());
}

TEST_F(ConfigurationTest, AFailedWriteIsShownAndTheNextOneWritesTheValue) {
  std::optional<HostProcess> host(std::in_place, DESKLOOM_HOST_PROGRAM);
  const auto provider = LocalConfigProvider<Options>::make("A", {});
  provider->config.count = 3;
  host->crash();
  provider->save();
  expectReadAlert(awaitAlert(), noScript);
  EXPECT_EQ(provider->config.count, 3);

  host.emplace(DESKLOOM_HOST_PROGRAM);
  quit();
  EXPECT_EQ(stored("A"), R"({"count":3,"kind":"all"})");
}

TEST_F(ConfigurationTest, AFailedWriteAtTheEndIsNotShown) {
  std::optional<HostProcess> host(std::in_place, DESKLOOM_HOST_PROGRAM);
  const auto provider = LocalConfigProvider<Options>::make("A", {});
  host->crash();
  quit();
  EXPECT_THAT(alerts.shown, IsEmpty());
}

TEST_F(ConfigurationTest, ThatCannotBeEncodedIsTheEmptyText) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  ASSERT_TRUE(DeskloomAPI().setConfig("something", "A"));
  const auto provider = LocalConfigProvider<Options>::make("A", {});
  provider->config.kind = "\xff";
  quit();
  EXPECT_EQ(stored("A"), "");
  EXPECT_THAT(alerts.shown, IsEmpty());
}

TEST_F(ConfigurationTest, OfTwoProvidersForOneActionTheLaterOneWins) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto first = LocalConfigProvider<Options>::make("A", {});
  const auto second = LocalConfigProvider<Options>::make("A", {});
  first->config.count = 1;
  second->config.count = 2;
  quit();
  EXPECT_EQ(stored("A"), R"({"count":2,"kind":"all"})");
}

/// A text with everything that scripts, JSON and the bus could get wrong.
std::string randomText(std::mt19937& random) {
  static const std::vector<std::string> pieces = {"\"", "\\", "\n", "\r",     "\t",     std::string(1, '\0'),
                                                  "/",  "a",  "é",  "🙂",     "\u2028", "\x7f",
                                                  "«",  "¬",  "&",  "--",     "(*",     "\\\"",
                                                  "}",  "u",  " ",  "\u0001", "日",     "\U0010FFFF"};
  std::string text;
  for (auto length = random() % 12; length > 0; --length)
    text += pieces[random() % pieces.size()];
  return text;
}

json randomValue(std::mt19937& random, int levels) {
  const auto kind = random() % (levels > 0 ? 8 : 6);
  json value;
  switch (kind) {
    case 0:
      return nullptr;
    case 1:
      return random() % 2 == 0;
    case 2:
      return static_cast<std::int64_t>(std::uint64_t{random()} << 32 | random());
    case 3:
      return (static_cast<double>(random()) - 2e9) * 1e-7;
    case 6:
      value = json::array();
      for (auto count = random() % 4; count > 0; --count)
        value.push_back(randomValue(random, levels - 1));
      return value;
    case 7:
      value = json::object();
      for (auto count = random() % 4; count > 0; --count)
        value[randomText(random)] = randomValue(random, levels - 1);
      return value;
    default:
      return randomText(random);
  }
}

TEST_F(ConfigurationTest, ComesBackFromTheHostAsItWentIn) {
  const HostProcess host(DESKLOOM_HOST_PROGRAM);
  std::mt19937 random;
  for (int round = 0; round < 300; ++round) {
    const json value = randomValue(random, 4);
    const auto text = DeskloomSDK::encodeJSON(json(Anything{value}));
    ASSERT_TRUE(text);
    ASSERT_TRUE(DeskloomAPI().setConfig(*text, "A"));
    EXPECT_EQ(stored("A"), *text);
    const auto provider = LocalConfigProvider<Anything>::make("A", {});
    ASSERT_TRUE(provider);
    EXPECT_EQ(provider->config.value, value) << *text;
  }
}

}  // namespace
