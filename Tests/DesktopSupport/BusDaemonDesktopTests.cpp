#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <unistd.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/Support/FakeDeskloomHost.h"

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::SessionBus;
using DesktopSupport::BusErrorName::invalidArguments;
using namespace std::chrono_literals;

const char* const name = "com.quillary.BusDaemonTests";
const char* const takenName = "com.quillary.Deskloom";  // by the fake host

const char* const description = R"(
  <node><interface name="com.quillary.BusDaemonTests"><method name="First"/><method name="Second"/></interface></node>)";

class BusDaemonTest : public testing::Test {
 protected:
  SessionBus bus_ = *SessionBus::connect();
  BusDaemon daemon_{bus_, 60s};
};

TEST_F(BusDaemonTest, GivesANameToThisProcessAndTakesItBack) {
  EXPECT_EQ(daemon_.ownerOf(name), std::nullopt);
  EXPECT_TRUE(daemon_.requestName(name).value());
  EXPECT_EQ(daemon_.ownerOf(name), bus_.uniqueName());
  daemon_.releaseName(name);
  EXPECT_EQ(daemon_.ownerOf(name), std::nullopt);
}

TEST_F(BusDaemonTest, LeavesANameToItsOwner) {
  TestSupport::FakeDeskloomHost host;
  const auto owner = daemon_.ownerOf(takenName);
  EXPECT_FALSE(daemon_.requestName(takenName).value());
  EXPECT_EQ(daemon_.ownerOf(takenName), owner);
  host.disappear();
  daemon_.synchronize();
  EXPECT_EQ(daemon_.ownerOf(takenName), std::nullopt) << "nobody is queued for it";
}

TEST_F(BusDaemonTest, RefusesWhatIsNoName) {
  const auto answer = daemon_.requestName("no name");
  ASSERT_FALSE(answer);
  EXPECT_EQ(answer.error().name, invalidArguments);
}

TEST_F(BusDaemonTest, KnowsTheProcessOfAName) {
  EXPECT_EQ(daemon_.processOf(name), std::nullopt);
  EXPECT_EQ(daemon_.processOf(bus_.uniqueName()), getpid());
}

TEST_F(BusDaemonTest, ReturnsAfterWhatTheBusHadSentHasArrived) {
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  std::vector<std::string> received;
  const auto object = bus_.serve("/", description, context.get(), [&](const DesktopSupport::BusInvocation& invocation) {
    received.push_back(invocation.method());
  });
  const auto other = SessionBus::connectTo(std::getenv("DBUS_SESSION_BUS_ADDRESS"));
  for (const char* method : {"First", "Second"})
    other->callLater({bus_.uniqueName(), "/", name, method}, nullptr, 60s, DesktopSupport::Activation::never,
                     [](const auto&) {});
  BusDaemon(*other, 60s).synchronize();  // the bus has passed them on
  EXPECT_THAT(received, testing::IsEmpty());
  daemon_.synchronize();
  while (g_main_context_iteration(context.get(), /*may_block=*/FALSE) != FALSE) {
  }
  EXPECT_THAT(received, testing::ElementsAre("First", "Second"));
}

TEST_F(BusDaemonTest, IsAskedThroughACopyOfTheBusToo) {
  const SessionBus copy = bus_;
  EXPECT_EQ(copy.uniqueName(), bus_.uniqueName());
  EXPECT_EQ(BusDaemon(copy, 60s).processOf(copy.uniqueName()), getpid());
}

}  // namespace
