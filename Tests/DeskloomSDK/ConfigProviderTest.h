#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>

#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "Platform/Fake/FakeServices.h"

namespace TestSupport {

struct Options {
  int count = 10;
  std::string kind = "all";
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count, kind)

struct Measure {
  double length = 1;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Measure, length)

inline const std::string readTitle = "Could not read action data in Deskloom.";

/// The script that sends the host a request.
inline std::string command(const std::string& text) {
  return "    tell application \"Deskloom\" to " + text;
}

/// The script that stores Options of this count for the action "A".
inline std::string storing(int count, const std::string& kind = "all") {
  return command(R"(set config "{\"count\":)" + std::to_string(count) + R"(,\"kind\":\")" + kind +
                 R"(\"}" action "A")");
}

/// Makes providers on a fake desktop, and sees what they ask the host.
class ConfigProviderTest : public testing::Test {
 protected:
  using Local = std::shared_ptr<DeskloomSDK::LocalConfigProvider<Options>>;

  /// A provider for the action "A", whose text in the host is `text`.
  Local makeLocal(const std::string& text, Options defaultConfig = {}) {
    desktop.scripts.answerText(text);
    auto provider = DeskloomSDK::LocalConfigProvider<Options>::make("A", std::move(defaultConfig));
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
    EXPECT_THAT(alert.buttons, testing::ElementsAre("OK"));
  }

  Platform::Fake::FakeServices desktop;
};

}  // namespace TestSupport
