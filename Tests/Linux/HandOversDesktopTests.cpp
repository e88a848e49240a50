#include <atomic>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "Linux/HandOvers.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/Patience.h"

using DesktopSupport::SessionBus;
using Linux::HandOvers;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using TestSupport::FakeService;

namespace {

using namespace std::chrono_literals;

constexpr const char* name = "com.example.Handler";

class Handler : public FakeService {
 public:
  Handler()
      : FakeService(name, "/com/example/Handler",
                    "<node><interface name='org.freedesktop.Application'>"
                    "<method name='Open'><arg type='as'/><arg type='a{sv}'/></method>"
                    "<method name='Activate'/></interface></node>") {
    answer("Activate", "()");
  }

  /// Calls another method, which arrives after everything that was sent before.
  static void activate() {
    const DesktopSupport::BusMethod method = {name, "/com/example/Handler", "org.freedesktop.Application", "Activate"};
    EXPECT_TRUE(SessionBus::connect().value().call(method, nullptr, nullptr, TestSupport::patience));
  }
};

std::string call(const std::string& url) {
  return "Open(['" + url + "'], {})";
}

class HandOversTest : public testing::Test {
 protected:
  void add(const std::string& url) { handOvers.add(SessionBus::connect().value(), name, "test", url); }

  Platform::Fake::FakeLog log;
  HandOvers handOvers{log, 60s};
};

TEST_F(HandOversTest, ReachTheirHandlerInTheirOrderHoweverManyTheyAre) {
  Handler handler;
  handler.answer("Open", "()");
  std::vector<std::string> expected;
  for (std::size_t number = 0; number < 3 * HandOvers::mostAtOnce; ++number) {
    add("test:" + std::to_string(number));
    expected.push_back(call("test:" + std::to_string(number)));
  }
  handOvers.finish();
  EXPECT_THAT(handler.calls(), ElementsAreArray(expected));
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST_F(HandOversTest, AreUnderWayInALimitedNumber) {
  Handler handler;
  std::vector<GDBusMethodInvocation*> unanswered;
  std::atomic<bool> isBusy = true;
  handler.answer("Open", [&](GDBusMethodInvocation* invocation) {
    if (isBusy)
      return unanswered.push_back(invocation);
    g_dbus_method_invocation_return_value(invocation, nullptr);
  });
  for (std::size_t number = 0; number < 2 * HandOvers::mostAtOnce; ++number)
    add("test:" + std::to_string(number));
  Handler::activate();
  EXPECT_THAT(handler.calls(), SizeIs(HandOvers::mostAtOnce + 1));
  isBusy = false;
  for (GDBusMethodInvocation* each : unanswered)
    g_dbus_method_invocation_return_value(each, nullptr);
  handOvers.finish();
  EXPECT_THAT(handler.calls(), SizeIs(2 * HandOvers::mostAtOnce + 1));
}

TEST_F(HandOversTest, SayWhatIsKnownIfTheHandlerDoesNotAnswer) {
  Handler handler;
  handler.answer("Open", [](GDBusMethodInvocation* invocation) { g_object_unref(invocation); });
  HandOvers impatient(log, 50ms);
  impatient.add(SessionBus::connect().value(), name, "test", "test:a");
  impatient.finish();
  EXPECT_THAT(log.messages, ElementsAre("handed over a test: URL and had no answer within 0 seconds: its handler may "
                                        "still receive it"));
  EXPECT_THAT(handler.calls(), SizeIs(1)) << "it is not sent again";
}

TEST_F(HandOversTest, SayThatItIsNotKnownIfTheHandlerLeavesWithoutAnAnswer) {
  std::optional<Handler> handler(std::in_place);
  handler->answer("Open", [&](GDBusMethodInvocation* invocation) {
    g_object_unref(invocation);
    handler->disappear();
  });
  add("test:a");
  handOvers.finish();
  EXPECT_THAT(log.messages, ElementsAre(HasSubstr("whether its handler has received it is not known")));
}

TEST_F(HandOversTest, SayWhyTheHandlerRefusesThem) {
  Handler handler;
  handler.answer("Open", [](GDBusMethodInvocation* invocation) {
    g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Refusal", "Not today.");
  });
  add("test:a");
  handOvers.finish();
  EXPECT_THAT(log.messages, ElementsAre("could not hand over a test: URL: Not today."));
  EXPECT_THAT(handler.calls(), SizeIs(1));
}

/// Refuses as the bus does, which limits the number of calls without an answer.
void refuseForWantOfRoom(GDBusMethodInvocation* invocation) {
  const std::string error(DesktopSupport::BusErrorName::limitsExceeded);
  g_dbus_method_invocation_return_dbus_error(invocation, error.c_str(), "Too many.");
}

TEST_F(HandOversTest, WaitUntilTheBusHasRoom) {
  Handler handler;
  std::vector<GDBusMethodInvocation*> asked;
  handler.answer("Open", [&asked](GDBusMethodInvocation* invocation) {
    asked.push_back(invocation);
    if (asked.size() < 3)
      return;
    if (asked.size() > 3)
      return g_dbus_method_invocation_return_value(invocation, nullptr);
    refuseForWantOfRoom(asked[1]);
    refuseForWantOfRoom(asked[2]);
    g_dbus_method_invocation_return_value(asked[0], nullptr);
  });
  for (const auto* url : {"test:a", "test:b", "test:c"})
    add(url);
  handOvers.finish();
  EXPECT_THAT(handler.calls(),
              ElementsAre(call("test:a"), call("test:b"), call("test:c"), call("test:b"), call("test:c")));
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST_F(HandOversTest, DoNotWaitForRoomIfNoCallIsUnderWay) {
  Handler handler;
  handler.answer("Open", refuseForWantOfRoom);
  add("test:a");
  handOvers.finish();
  EXPECT_THAT(log.messages, ElementsAre("could not hand over a test: URL: Too many."));
}

TEST_F(HandOversTest, MayEndBeforeTheirHandlerAnswers) {
  Handler handler;
  GDBusMethodInvocation* unanswered = nullptr;
  handler.answer("Open", [&](GDBusMethodInvocation* invocation) { unanswered = invocation; });
  {
    HandOvers ended(log, 60s);
    ended.add(SessionBus::connect().value(), name, "test", "test:a");
    Handler::activate();
  }
  handler.answer("Open", "()");
  g_dbus_method_invocation_return_dbus_error(unanswered, "org.example.Refusal", "Not today.");
  add("test:b");
  handOvers.finish();
  EXPECT_THAT(log.messages, IsEmpty());
}

TEST_F(HandOversTest, AreNoneIfNoneWasAdded) {
  handOvers.finish();
  EXPECT_THAT(log.messages, IsEmpty());
}

}  // namespace
