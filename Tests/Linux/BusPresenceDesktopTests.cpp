#include <atomic>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/Bus/SessionBus.h"
#include "Linux/Launching/BusPresence.h"
#include "Tests/Support/FakeService.h"

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
    service.answer(method, [&](GDBusMethodInvocation* invocation) {
      auto launches = Linux::launchesOf(invocation, now);
      look(launches);
    });
    return SessionBus::connect()->call(
        {"com.example.Called", "/com/example/Called", DesktopSupport::applicationInterface, method},
        g_variant_new_parsed(arguments.c_str()), nullptr, 60s);
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
  TestSupport::FakeService service{"com.example.Called", "/com/example/Called",
                                   DesktopSupport::applicationIntrospection};
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
  service.answer("Open", [&](GDBusMethodInvocation* invocation) {
    auto launches = Linux::launchesOf(invocation, now);
    kept.push_back(std::move(launches.at(0)));
  });
  const auto bus = SessionBus::connect();
  EXPECT_EQ(bus->call({"com.example.Called", "/com/example/Called", DesktopSupport::applicationInterface, "Open"},
                      g_variant_new_parsed("(['a:b', 'c:d'], @a{sv} {})"), nullptr, 100ms)
                .error()
                .name,
            DesktopSupport::BusErrorName::timeout);
}

/// Counts the messages that a connection sends.
class SentMessages {
 public:
  explicit SentMessages(GDBusConnection* connection)
      : connection_(connection),
        filter_(g_dbus_connection_add_filter(connection, &SentMessages::count, this, nullptr)) {}
  SentMessages(const SentMessages&) = delete;
  SentMessages& operator=(const SentMessages&) = delete;
  ~SentMessages() { g_dbus_connection_remove_filter(connection_, filter_); }

  [[nodiscard]] int count() const { return count_; }

 private:
  static GDBusMessage* count(GDBusConnection*, GDBusMessage* message, gboolean isIncoming, gpointer self) {
    if (isIncoming == FALSE)
      ++static_cast<SentMessages*>(self)->count_;
    return message;
  }

  GDBusConnection* connection_;
  std::atomic<int> count_ = 0;
  guint filter_;
};

TEST(BusPresence, WaitsForItsAnswersOnlyIfItWasCalled) {
  const SessionBus bus = SessionBus::connect().value();
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  bool isCalled = false;
  BusPresence presence(bus, "com.example.Present", context.get(), [&](const Launch&) { isCalled = true; });
  ASSERT_TRUE(presence.acquireName());
  const SentMessages sent(bus.connection());
  presence.flush();
  EXPECT_EQ(sent.count(), 0);

  g_dbus_connection_call(bus.connection(), "com.example.Present", "/com/example/Present",
                         DesktopSupport::applicationInterface, "Activate", DesktopSupport::activateArguments(), nullptr,
                         G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr, nullptr);
  while (!isCalled)
    g_main_context_iteration(context.get(), /*may_block=*/TRUE);
  presence.flush();
  EXPECT_EQ(sent.count(), 2) << "the call, which wants no answer, and the question of whether all have arrived";
  presence.releaseName();
}

}  // namespace
