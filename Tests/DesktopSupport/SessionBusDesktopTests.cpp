#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/SilentServer.h"

namespace {

using DesktopSupport::BusCall;
using DesktopSupport::BusMethod;
using DesktopSupport::SessionBus;
using TestSupport::EnvironmentVariable;
using TestSupport::FakeDeskloomHost;
namespace BusErrorName = DesktopSupport::BusErrorName;
using namespace std::chrono_literals;

const BusMethod listNames = DesktopSupport::busDaemonMethod("ListNames");
const BusMethod folderPath{.destination = "com.quillary.Deskloom",
                           .path = "/com/quillary/Deskloom",
                           .interface = "com.quillary.Deskloom.Scripting",
                           .name = "GetPluginFolderPath"};
constexpr auto plenty = 60s;

std::string errorOf(const BusMethod& method, const char* replyType = "(bs)",
                    std::chrono::milliseconds timeout = plenty) {
  const auto bus = SessionBus::connect();
  if (!bus)
    return bus.error().name;
  const auto reply = bus->call(method, nullptr, G_VARIANT_TYPE(replyType), timeout);
  return reply ? "none" : reply.error().name;
}

TEST(SessionBus, IsAbsentIfTheEnvironmentNamesNone) {
  const EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", "/no/such/folder");
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const auto bus = SessionBus::connect();
  ASSERT_FALSE(bus);
  EXPECT_EQ(bus.error().name, BusErrorName::noServer);
}

TEST(SessionBus, IsAbsentIfItCannotBeReached) {
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/such/socket");
  const auto bus = SessionBus::connect();
  ASSERT_FALSE(bus);
  EXPECT_EQ(bus.error().name, BusErrorName::noServer);
}

TEST(SessionBus, IsAbsentIfItTakesAConnectionAndSaysNothing) {
  const TestSupport::SilentServer server;
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS",
                                    "tcp:host=127.0.0.1,port=" + std::to_string(server.port()));
  const auto bus = SessionBus::connect(50ms);
  ASSERT_FALSE(bus);
  EXPECT_EQ(bus.error().name, BusErrorName::noServer);
  EXPECT_EQ(bus.error().message, "The session bus does not answer.");
}

TEST(SessionBus, IsOneConnection) {
  EXPECT_EQ(SessionBus::connect()->connection(), SessionBus::connect()->connection());
}

TEST(SessionBus, DoesNotEndTheProcessWithItself) {
  EXPECT_EQ(g_dbus_connection_get_exit_on_close(SessionBus::connect()->connection()), FALSE);
}

TEST(SessionBus, BringsTheAnswerToACall) {
  const auto reply = SessionBus::connect()->call(listNames, nullptr, G_VARIANT_TYPE("(as)"), plenty);
  ASSERT_TRUE(reply) << reply.error().message;
  EXPECT_STREQ(g_variant_get_type_string(reply->get()), "(as)");
}

TEST(SessionBus, SaysThatNobodyHasTheNameCalled) {
  EXPECT_THAT(errorOf(folderPath), testing::AnyOf(BusErrorName::nameHasNoOwner, BusErrorName::serviceUnknown));
}

TEST(SessionBus, SaysThatTheMethodIsUnknown) {
  FakeDeskloomHost host;
  BusMethod unknown = folderPath;
  unknown.name = "NoSuchMethod";
  EXPECT_EQ(errorOf(unknown), "org.freedesktop.DBus.Error.UnknownMethod");
}

TEST(SessionBus, RefusesNamesThatDBusDoesNotAllow) {
  for (const auto part : {&BusMethod::destination, &BusMethod::path, &BusMethod::interface, &BusMethod::name}) {
    BusMethod method = listNames;
    method.*part = "no-such name";
    const auto reply = SessionBus::connect()->call(method, g_variant_new("(s)", "taken"), nullptr, plenty);
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().name, BusErrorName::invalidArguments);
  }
}

TEST(SessionBus, SaysThatNoAnswerCameInTime) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", [](auto* invocation) { g_object_unref(invocation); });
  EXPECT_EQ(errorOf(folderPath, "(bs)", 50ms), BusErrorName::timeout);
}

TEST(SessionBus, SaysThatTheOneAskedLeft) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", [&](auto* invocation) {
    host.disappear();
    g_object_unref(invocation);
  });
  EXPECT_EQ(errorOf(folderPath), BusErrorName::noReply);
}

TEST(SessionBus, RefusesAnAnswerOfAnotherType) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", "(true, 'text')");
  EXPECT_EQ(errorOf(folderPath, "(bs)"), "none");
  EXPECT_NE(errorOf(folderPath, "(s)"), "none");
}

TEST(SessionBus, PassesTheOtherSidesErrorOn) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", [](auto* invocation) {
    g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Refusal", "Not today.");
  });
  const auto reply = SessionBus::connect()->call(folderPath, nullptr, G_VARIANT_TYPE("(bs)"), plenty);
  ASSERT_FALSE(reply);
  EXPECT_EQ(reply.error().name, "org.example.Refusal");
  EXPECT_EQ(reply.error().message, "Not today.");
}

// The types of the answers, or the errors' names.
std::vector<std::string> typesOf(const std::vector<DesktopSupport::BusAnswer>& answers) {
  std::vector<std::string> types;
  for (const auto& answer : answers)
    types.emplace_back(answer ? g_variant_get_type_string(answer->get()) : answer.error().name);
  return types;
}

BusCall callForFolder() {
  return {.method = folderPath, .replyType = G_VARIANT_TYPE("(bs)")};
}

TEST(SessionBus, BringsTheAnswersToSeveralCallsInTheirOrder) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", "(true, 'text')");
  std::vector<BusCall> calls;
  for (const char* name : {"org.freedesktop.DBus", "com.example.Nobody"})
    calls.push_back({.method = DesktopSupport::busDaemonMethod("GetNameOwner"),
                     .arguments = DesktopSupport::owned(g_variant_new("(s)", name)),
                     .replyType = G_VARIANT_TYPE("(s)")});
  calls.push_back(callForFolder());
  calls.push_back({.method = {.destination = "not a name", .path = "/", .interface = "a.b", .name = "C"}});
  calls.push_back({.method = listNames, .replyType = G_VARIANT_TYPE("(u)")});
  calls.push_back({.method = listNames});
  EXPECT_THAT(typesOf(SessionBus::connect()->callAll(calls, plenty)),
              testing::ElementsAre("(s)", BusErrorName::nameHasNoOwner, "(bs)", BusErrorName::invalidArguments,
                                   testing::HasSubstr("Error"), "(as)"));
  EXPECT_THAT(SessionBus::connect()->callAll({}, plenty), testing::IsEmpty());
}

TEST(SessionBus, MakesSeveralCallsAtOnce) {
  FakeDeskloomHost host;
  std::vector<GDBusMethodInvocation*> invocations;
  // Answers none before it has both.
  host.answer("GetPluginFolderPath", [&](auto* invocation) {
    invocations.push_back(invocation);
    if (invocations.size() == 2)
      for (auto* each : invocations)
        g_dbus_method_invocation_return_value(each, g_variant_new("(bs)", TRUE, "text"));
  });
  std::vector<BusCall> calls(2);
  for (BusCall& call : calls)
    call = callForFolder();
  EXPECT_THAT(typesOf(SessionBus::connect()->callAll(calls, plenty)), testing::ElementsAre("(bs)", "(bs)"));
}

TEST(SessionBus, WaitsForSeveralAnswersNoLongerThanAllowed) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", [](auto* invocation) { g_object_unref(invocation); });
  std::vector<BusCall> calls(4);
  for (BusCall& call : calls)
    call = callForFolder();
  calls.back() = {.method = listNames};
  const auto& late = BusErrorName::timeout;
  EXPECT_THAT(typesOf(SessionBus::connect()->callAll(calls, 50ms)), testing::ElementsAre(late, late, late, "(as)"));
}

TEST(SessionBus, CanBeAnotherBusAtASocket) {
  const auto bus = SessionBus::connectTo(std::getenv("DBUS_SESSION_BUS_ADDRESS"));
  ASSERT_TRUE(bus) << bus.error().message;
  EXPECT_NE(bus->connection(), SessionBus::connect()->connection());
  EXPECT_TRUE(bus->call(listNames, nullptr, G_VARIANT_TYPE("(as)"), plenty));
  EXPECT_EQ(SessionBus::connectTo("unix:path=/no/such/socket").error().name, BusErrorName::noServer);
}

TEST(SessionBus, IsAtNoAddressThatWouldStartAProgramOrLeaveTheMachine) {
  for (const char* address : {"", ";", "autolaunch:", "unixexec:path=true", "tcp:host=127.0.0.1,port=1",
                              "nonce-tcp:", "unix:path=/no/such/socket;unixexec:path=true", "text"}) {
    const auto bus = SessionBus::connectTo(address);
    ASSERT_FALSE(bus) << address;
    EXPECT_EQ(bus.error().name, BusErrorName::notSupported) << address;
  }
}

}  // namespace
