#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/SilentBus.h"
#include "Tests/Support/TemporaryFolder.h"

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
  const TestSupport::SilentBus silent;
  const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", silent.address());
  const auto bus = SessionBus::connect(50ms);
  ASSERT_FALSE(bus);
  EXPECT_EQ(bus.error().name, BusErrorName::noServer);
  EXPECT_EQ(bus.error().message, "The session bus does not answer.");
}

TEST(SessionBus, IsOneConnection) {
  const auto bus = SessionBus::connect();
  EXPECT_EQ(bus->uniqueName(), SessionBus::connect()->uniqueName());
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

TEST(SessionBus, FailsWhatIsUnderWayIfItGoesAway) {
  const TestSupport::TemporaryFolder folder;
  const std::string address = "unix:path=" + (folder.path() / "bus").string();
  TestSupport::ChildProcess daemon(
      {"dbus-daemon", "--session", "--nofork", "--print-address=1", "--address=" + address});
  ASSERT_TRUE(daemon.readLine());
  const auto bus = SessionBus::connectTo(address);
  ASSERT_TRUE(bus) << bus.error().message;
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  const auto object = bus->serve(folderPath.path,
                                 "<node><interface name='com.quillary.Deskloom.Scripting'>"
                                 "<method name='GetPluginFolderPath'/></interface></node>",
                                 context.get(), [](const auto&) {});
  BusMethod unanswered = folderPath;
  unanswered.destination = bus->uniqueName();
  std::string later;
  bool isClosed = false;
  bus->callLater(unanswered, nullptr, plenty, DesktopSupport::Activation::never,
                 [&](const auto& answer) { later = answer ? "none" : answer.error().name; });
  bus->setWhenClosed([&] { isClosed = true; });
  const std::jthread end([&] { kill(daemon.pid(), SIGKILL); });
  EXPECT_EQ(bus->call(unanswered, nullptr, nullptr, plenty).error().name, BusErrorName::disconnected);
  EXPECT_EQ(bus->call(listNames, nullptr, nullptr, plenty).error().name, BusErrorName::disconnected);
  while (later.empty() || !isClosed)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  EXPECT_EQ(later, BusErrorName::disconnected);
}

TEST(SessionBus, AnswersLaterOnlyAfterTheCallHasReturned) {
  FakeDeskloomHost host;
  host.answer("GetPluginFolderPath", "(true, 'text')");
  const auto bus = SessionBus::connect();
  std::vector<std::string> answers;
  const auto note = [&](const auto& answer) {
    answers.emplace_back(answer ? g_variant_get_type_string(answer->get()) : answer.error().name);
  };
  BusMethod forbidden = folderPath;
  forbidden.destination = "no name";
  bus->callLater(forbidden, nullptr, plenty, DesktopSupport::Activation::never, note);
  bus->callLater(folderPath, nullptr, plenty, DesktopSupport::Activation::never, note);
  EXPECT_TRUE(bus->call(folderPath, nullptr, nullptr, plenty));
  EXPECT_THAT(answers, testing::IsEmpty());
  while (answers.size() < 2)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  EXPECT_THAT(answers, testing::ElementsAre(BusErrorName::invalidArguments, "(bs)"));

  host.answer("GetPluginFolderPath", [](auto* invocation) { g_object_unref(invocation); });
  bus->callLater(folderPath, nullptr, 50ms, DesktopSupport::Activation::never, note);
  while (answers.size() < 3)
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  EXPECT_EQ(answers.back(), BusErrorName::timeout);
}

TEST(SessionBus, BringsTheSignalsSubscribedTo) {
  FakeDeskloomHost host;
  const auto bus = SessionBus::connect();
  std::vector<std::string> signals;
  auto subscription = bus->subscribe("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                     "com.quillary.Deskloom", [&](const std::string& signal, GVariant* arguments) {
                                       signals.push_back(signal + g_variant_get_type_string(arguments));
                                     });
  DesktopSupport::BusDaemon(*bus, plenty).synchronize();
  host.disappear();
  while (signals.empty())
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  EXPECT_THAT(signals, testing::ElementsAre("NameOwnerChanged(sss)"));
  subscription.reset();
  const FakeDeskloomHost another;
  DesktopSupport::BusDaemon(*bus, plenty).synchronize();
  while (g_main_context_iteration(nullptr, /*may_block=*/FALSE) != FALSE) {
  }
  EXPECT_THAT(signals, testing::SizeIs(1));
}

TEST(SessionBus, EndsAtAServerThatIsNoBus) {
  const TestSupport::TemporaryFolder folder;
  const auto path = folder.path() / "bus";
  for (const std::string reply : {"REJECTED EXTERNAL\\r\\n", "HTTP/1.1 200 OK\\r\\n", "OK 1\\r\\nNo message at all"}) {
    TestSupport::ChildProcess server({"python3", "-c",
                                      "import socket\ns=socket.socket(socket.AF_UNIX)\ns.bind('" + path.string() +
                                          "')\ns.listen()\nprint('listening',flush=True)\nc=s.accept()[0]\n"
                                          "c.recv(4096)\nc.sendall(b'" +
                                          reply + "')\nc.recv(4096)\n"});
    ASSERT_TRUE(server.readLine());
    const auto bus = SessionBus::connectTo("unix:path=" + path.string(), plenty);
    ASSERT_FALSE(bus) << reply;
    EXPECT_EQ(bus.error().name, BusErrorName::noServer) << reply;
    std::filesystem::remove(path);
  }
}

TEST(SessionBus, CanBeAnotherBusAtASocket) {
  const auto bus = SessionBus::connectTo(std::getenv("DBUS_SESSION_BUS_ADDRESS"));
  ASSERT_TRUE(bus) << bus.error().message;
  EXPECT_NE(bus->uniqueName(), SessionBus::connect()->uniqueName());
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
