#include <atomic>

#include <gtest/gtest.h>
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
  std::atomic<bool> hasArrived = false;
  const auto look = [](GDBusConnection*, GDBusMessage* message, gboolean incoming, gpointer data) {
    // The bus sends it for the connection's own name too, which may come as late as this.
    const bool isTheName = g_strcmp0(g_dbus_message_get_arg0(message), name) == 0;
    if (incoming != FALSE && isTheName && g_strcmp0(g_dbus_message_get_member(message), "NameAcquired") == 0)
      *static_cast<std::atomic<bool>*>(data) = true;
    return message;
  };
  const guint filter = g_dbus_connection_add_filter(bus_.connection(), look, &hasArrived, nullptr);
  EXPECT_TRUE(daemon_.requestName(name).value());
  daemon_.synchronize();
  EXPECT_TRUE(hasArrived);
  g_dbus_connection_remove_filter(bus_.connection(), filter);
  daemon_.releaseName(name);
}

TEST_F(BusDaemonTest, IsAskedThroughACopyOfTheBusToo) {
  const SessionBus copy = bus_;
  EXPECT_EQ(copy.connection(), bus_.connection());
  EXPECT_EQ(BusDaemon(copy, 60s).processOf(g_dbus_connection_get_unique_name(copy.connection())), getpid());
}

}  // namespace
