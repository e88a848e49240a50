#include <atomic>
#include <semaphore>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/Patience.h"

namespace {

using DesktopSupport::BusDaemon;
using DesktopSupport::SessionBus;
using DesktopSupport::BusErrorName::invalidArguments;
using namespace std::chrono_literals;

const char* const name = "com.quillary.BusDaemonTests";
const char* const takenName = "com.quillary.Deskloom";  // by the fake host

/// What a connection receives, on a thread of its own: the signals First and Second.
struct Reception {
  std::binary_semaphore hasFirst{0};
  std::binary_semaphore mayGoOn{0};
  std::atomic<bool> hasSecond = false;
};

/// Takes nothing else until `mayGoOn`.
GDBusMessage* receive(GDBusConnection* /*bus*/, GDBusMessage* message, gboolean incoming, gpointer data) {
  auto& reception = *static_cast<Reception*>(data);
  const char* const member = incoming != FALSE ? g_dbus_message_get_member(message) : nullptr;
  if (g_strcmp0(member, "First") == 0) {
    reception.hasFirst.release();
    reception.mayGoOn.acquire();
  }
  if (g_strcmp0(member, "Second") == 0)
    reception.hasSecond = true;
  return message;
}

/// Sends a connection a signal, in another process: in this one, all connections share a thread. Returns after the bus
/// has taken it.
void sendSignal(const std::string& receiver, const std::string& signal) {
  EXPECT_EQ(TestSupport::run({"gdbus", "emit", "--session", "--dest", receiver, "--object-path", "/", "--signal",
                              name + ("." + signal)}),
            0);
  // The bus has answered a later process.
  EXPECT_EQ(TestSupport::run({"gdbus", "call", "--session", "--dest", "org.freedesktop.DBus", "--object-path",
                              "/org/freedesktop/DBus", "--method", "org.freedesktop.DBus.GetId"}),
            0);
}

class BusDaemonTest : public testing::Test {
 protected:
  SessionBus bus_ = *SessionBus::connect();
  BusDaemon daemon_{bus_, 60s};
};

TEST_F(BusDaemonTest, GivesANameToThisProcessAndTakesItBack) {
  EXPECT_EQ(daemon_.ownerOf(name), std::nullopt);
  EXPECT_TRUE(daemon_.requestName(name).value());
  EXPECT_EQ(daemon_.ownerOf(name), g_dbus_connection_get_unique_name(bus_.connection()));
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
  EXPECT_EQ(daemon_.processOf(g_dbus_connection_get_unique_name(bus_.connection())), getpid());
}

TEST_F(BusDaemonTest, ReturnsAfterWhatTheBusHadSentHasArrived) {
  Reception reception;
  const guint filter = g_dbus_connection_add_filter(bus_.connection(), receive, &reception, nullptr);
  const std::string receiver = g_dbus_connection_get_unique_name(bus_.connection());
  sendSignal(receiver, "First");
  ASSERT_TRUE(reception.hasFirst.try_acquire_for(TestSupport::patience));
  sendSignal(receiver, "Second");
  reception.mayGoOn.release();
  daemon_.synchronize();
  EXPECT_TRUE(reception.hasSecond);
  g_dbus_connection_remove_filter(bus_.connection(), filter);
}

TEST_F(BusDaemonTest, IsAskedThroughACopyOfTheBusToo) {
  const SessionBus copy = bus_;
  EXPECT_EQ(copy.connection(), bus_.connection());
  EXPECT_EQ(BusDaemon(copy, 60s).processOf(g_dbus_connection_get_unique_name(copy.connection())), getpid());
}

}  // namespace
