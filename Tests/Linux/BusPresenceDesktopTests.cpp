#include <expected>
#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "Linux/Launching/BusPresence.h"
#include "Tests/Support/BusMonitor.h"
#include "Tests/Support/ServingThread.h"

using DesktopSupport::BusInvocation;
using DesktopSupport::SessionBus;
using Linux::BusPresence;
using Linux::Launch;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

using namespace std::chrono_literals;

class LaunchesOfACallTest : public testing::Test {
 protected:
  using Answer = std::expected<DesktopSupport::VariantHandle, DesktopSupport::BusError>;

  /// Calls a method with arguments in GVariant's text form, and passes the launches of that call at the time `now` to
  /// `look`.
  Answer call(const char* method, const std::string& arguments, const std::function<void(std::vector<Launch>&)>& look) {
    take = [&](BusInvocation invocation) {
      const std::lock_guard lock(looking);
      auto launches = Linux::launchesOf(std::move(invocation), now);
      look(launches);
    };
    auto answer = bus->call({bus->uniqueName(), "/com/example/Called", DesktopSupport::applicationInterface, method},
                            g_variant_new_parsed(arguments.c_str()), nullptr, 60s);
    // A call without launches is answered before the look.
    const std::lock_guard lock(looking);
    return answer;
  }

  /// The time that a launch with this platform data has to begin.
  Launch::Clock::duration timeWith(const std::string& platformData) {
    Launch::Clock::duration time{};
    EXPECT_TRUE(call("Open", "(['a:b'], @a{sv} {" + platformData + "})",
                     [&](std::vector<Launch>& launches) { time = launches.at(0).beginBy.value() - now; }));
    return time;
  }

  static std::string deadline(std::int64_t microseconds) {
    return "'deskloom-begin-by': <int64 " + std::to_string(microseconds) + ">";
  }

  const Launch::Clock::time_point now{1h};
  const std::expected<SessionBus, DesktopSupport::BusError> bus = SessionBus::connect();
  std::mutex looking;
  std::function<void(BusInvocation)> take;
  const DesktopSupport::MainContextHandle context{g_main_context_new()};
  const std::unique_ptr<DesktopSupport::ServedObject> object =
      bus->serve("/com/example/Called", DesktopSupport::applicationIntrospection, context.get(),
                 [this](BusInvocation invocation) { take(std::move(invocation)); });
  const TestSupport::ServingThread thread{context.get()};
};

TEST_F(LaunchesOfACallTest, IsALaunchForEachURL) {
  EXPECT_TRUE(call("Open", "(['a:b', 'c:d', ''], @a{sv} {})", [](std::vector<Launch>& launches) {
    std::vector<std::string> urls;
    for (const Launch& launch : launches)
      urls.push_back(launch.url.value());
    EXPECT_THAT(urls, ElementsAre("a:b", "c:d", ""));
  }));
  EXPECT_TRUE(call("Open", "(@as [], @a{sv} {})", [](const auto& launches) { EXPECT_THAT(launches, IsEmpty()); }));
}

TEST_F(LaunchesOfACallTest, IsALaunchWithoutAURLIfItActivates) {
  const auto look = [](std::vector<Launch>& launches) {
    ASSERT_EQ(launches.size(), 1U);
    EXPECT_EQ(launches[0].url, std::nullopt);
  };
  EXPECT_TRUE(call("Activate", "(@a{sv} {},)", look));
  EXPECT_TRUE(call("ActivateAction", "('name', @av [], @a{sv} {})", look));
}

TEST_F(LaunchesOfACallTest, WaitsHalfASecondForItsTurn) {
  EXPECT_EQ(timeWith(""), 500ms);
  EXPECT_EQ(timeWith("'other': <1>"), 500ms);
  EXPECT_EQ(timeWith("'deskloom-begin-by': <'soon'>"), 500ms);
}

TEST_F(LaunchesOfACallTest, WaitsNoLongerThanItsCaller) {
  constexpr auto nowInMicroseconds = std::chrono::microseconds(1h).count();
  EXPECT_EQ(timeWith(deadline(nowInMicroseconds + 1)), 1us);
  EXPECT_EQ(timeWith(deadline(nowInMicroseconds + 500'000)), 500ms);
  EXPECT_EQ(timeWith(deadline(nowInMicroseconds + 500'001)), 500ms);
  EXPECT_EQ(timeWith(deadline(nowInMicroseconds)), 0us);
  EXPECT_EQ(timeWith(deadline(nowInMicroseconds - 1)), 0us);
}

TEST_F(LaunchesOfACallTest, CopesWithAnyTime) {
  EXPECT_EQ(timeWith(deadline(std::numeric_limits<std::int64_t>::max())), 500ms);
  EXPECT_EQ(timeWith(deadline(std::numeric_limits<std::int64_t>::min() + 1)), 0us);
  EXPECT_EQ(timeWith(deadline(0)), 0us);
}

TEST_F(LaunchesOfACallTest, SaysTheTimeAsItIsRead) {
  const DesktopSupport::VariantHandle data = DesktopSupport::owned(Linux::dataWithDeadline(now + 7us));
  const DesktopSupport::CharsHandle text(g_variant_print(data.get(), TRUE));
  EXPECT_STREQ(text.get(), ("{" + deadline(3'600'000'007) + "}").c_str());
}

TEST_F(LaunchesOfACallTest, HasACallerThatHelpsItselfIfThatWaitsForOneLaunch) {
  const auto helpsItself = [this](const std::string& arguments) {
    bool does = false;
    EXPECT_TRUE(call("Open", arguments, [&](auto& launches) { does = launches.at(0).caller->helpsItself(); }));
    return does;
  };
  EXPECT_TRUE(helpsItself("(['a:b'], @a{sv} {" + deadline(1) + "})"));
  EXPECT_FALSE(helpsItself("(['a:b'], @a{sv} {})"));
  EXPECT_FALSE(helpsItself("(['a:b', 'c:d'], @a{sv} {" + deadline(1) + "})")) << "which of them was refused?";
}

TEST_F(LaunchesOfACallTest, TellsItsCallerTheFirstWord) {
  const auto refused = call("Open", "(['a:b'], @a{sv} {})", [](std::vector<Launch>& launches) {
    launches[0].caller->refuse("No time.");
    launches[0].caller->accept();
  });
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().message, "No time.");
  EXPECT_TRUE(call("Open", "(['a:b'], @a{sv} {})", [](std::vector<Launch>& launches) {
    launches[0].caller->accept();
    launches[0].caller->refuse("No time.");
  }));
}

TEST_F(LaunchesOfACallTest, KeepsItsCallerUntilAllLaunchesAreSeenTo) {
  std::vector<Launch> kept;
  take = [&](BusInvocation invocation) {
    auto launches = Linux::launchesOf(std::move(invocation), now);
    kept.push_back(std::move(launches.at(0)));
  };
  EXPECT_EQ(bus->call({bus->uniqueName(), "/com/example/Called", DesktopSupport::applicationInterface, "Open"},
                      g_variant_new_parsed("(['a:b', 'c:d'], @a{sv} {})"), nullptr, 100ms)
                .error()
                .name,
            DesktopSupport::BusErrorName::timeout);
}

TEST(BusPresence, WaitsForItsAnswersOnlyIfItWasCalled) {
  const SessionBus bus = SessionBus::connect().value();
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  bool isCalled = false;
  BusPresence presence(bus, "com.example.Present", context.get(), [&](const Launch&) { isCalled = true; });
  ASSERT_TRUE(presence.acquireName());
  // What is counted is the question of whether the answers have arrived.
  TestSupport::BusMonitor questions("type='method_call',member='GetId',sender='" + bus.uniqueName() + '\'');
  presence.flush();

  bus.callLater({"com.example.Present", "/com/example/Present", DesktopSupport::applicationInterface, "Activate"},
                DesktopSupport::activateArguments(), 60s, DesktopSupport::Activation::never, [](const auto&) {});
  while (!isCalled)
    g_main_context_iteration(context.get(), /*may_block=*/TRUE);
  presence.flush();
  presence.flush();
  EXPECT_EQ(questions.await(2), 2) << "none before the call";
  presence.releaseName();
}

}  // namespace
