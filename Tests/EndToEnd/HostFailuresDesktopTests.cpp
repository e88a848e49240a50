// The host scripting API with a host that has no value, refuses, answers nonsense, hangs, crashes or isn't there.

#include <expected>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Host/DeskloomAPI.h"
#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "Linux/Services.h"
#include "Tests/Support/BusMonitor.h"
#include "Tests/Support/FakeDeskloomHost.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using DeskloomSDK::APIResult;
using DeskloomSDK::DeskloomAPI;
using DesktopSupport::SessionBus;
using testing::ElementsAre;
using TestSupport::FakeDeskloomHost;
using TestSupport::HostProcess;

namespace {

using namespace std::chrono_literals;

constexpr const char* hostName = "com.quillary.Deskloom";
/// Longer than anything takes without the host, and far less than the language's own two minutes.
constexpr std::chrono::seconds atOnce{30};

template <typename T>
std::optional<Platform::Error> errorOf(const APIResult<T>& result) {
  return result ? std::nullopt : std::optional(result.error());
}

/// A request of the API: the host's method that answers it, the type of a valid answer, and a function that performs it
/// and yields its error, if any.
struct Request {
  const char* method;
  const char* answerType;
  std::function<std::optional<Platform::Error>()> perform;
};

const std::vector<Request>& requests() {
  static const std::vector<Request> all = {
      {"GetGlobalConfig", "(bs)", [] { return errorOf(DeskloomAPI().getGlobalConfig()); }},
      {"SetGlobalConfig", "()", [] { return errorOf(DeskloomAPI().setGlobalConfig("value")); }},
      {"GetConfig", "(bs)", [] { return errorOf(DeskloomAPI().getConfig("A")); }},
      {"SetConfig", "()", [] { return errorOf(DeskloomAPI().setConfig("value", "A")); }},
      {"GetPluginFolderPath", "(bs)", [] { return errorOf(DeskloomAPI().getPluginFolderPath()); }},
      {"GetPathOfPlugin", "(bs)", [] { return errorOf(DeskloomAPI().getPluginPath("Gleanery")); }},
      {"GetIsPluginInstalledAtPath", "(b)", [] { return errorOf(DeskloomAPI().isPluginInstalled("/p")); }},
      {"InstallPlugin", "()", [] { return errorOf(DeskloomAPI().installPlugin()); }},
  };
  return all;
}

void expectScriptFailure(const std::optional<Platform::Error>& error, const std::string& where) {
  ASSERT_TRUE(error) << where;
  EXPECT_EQ(error->domain(), "com.quillary.DeskloomSDK") << where;
  EXPECT_EQ(error->code(), 1) << where;
  EXPECT_EQ(error->localizedDescription(), "Could not run script") << where;
  EXPECT_EQ(error->localizedFailureReason(),
            "It looks like you haven't got Deskloom 2 app or you didn't allow to communicate the plugin (this app) via "
            "Apple Script")
      << where;
}

/// A plug-in on the real desktop with a host that the test controls.
class PluginTest : public testing::Test {
 protected:
  PluginTest() {
    folder_.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n");
    desktop_.bundle = Linux::Bundle(folder_.path());
  }

  DeskloomAPI api;

 private:
  TestSupport::TemporaryFolder folder_;
  Linux::Services desktop_;
};

class HostAnswersTest : public PluginTest {
 protected:
  FakeDeskloomHost host;
};

TEST_F(HostAnswersTest, AreAskedForByOneCallEach) {
  for (const Request& request : requests())
    request.perform();
  EXPECT_THAT(host.calls(),
              ElementsAre("GetGlobalConfig('com.example.Plugin',)", "SetGlobalConfig('value', 'com.example.Plugin')",
                          "GetConfig('A',)", "SetConfig('value', 'A')", "GetPluginFolderPath()",
                          "GetPathOfPlugin('Gleanery',)", "GetIsPluginInstalledAtPath('/p',)", "InstallPlugin()"));
}

TEST_F(HostAnswersTest, AreYieldedAsTheyAre) {
  host.answer("GetConfig", "(true, ' {} \\n')");
  host.answer("GetGlobalConfig", "(true, '')");
  host.answer("GetPluginFolderPath", "(true, 'relative')");
  host.answer("GetPathOfPlugin", "(true, '')");
  EXPECT_EQ(api.getConfig("A"), " {} \n");
  EXPECT_EQ(api.getGlobalConfig(), "");
  EXPECT_EQ(api.getPluginFolderPath(), "relative");
  EXPECT_EQ(api.getPluginPath("x"), "");
}

TEST_F(HostAnswersTest, MayBeThatThereIsNoText) {
  for (const auto* method : {"GetGlobalConfig", "GetConfig", "GetPluginFolderPath", "GetPathOfPlugin"})
    host.answer(method, "(false, 'ignored')");
  for (const auto& error :
       {errorOf(api.getGlobalConfig()), errorOf(api.getConfig("A")), errorOf(api.getPluginFolderPath())}) {
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code(), 2);
    EXPECT_EQ(error->localizedDescription(), "Could not read data from script output");
  }
  const auto path = api.getPluginPath("x");
  ASSERT_TRUE(path);
  EXPECT_EQ(*path, std::nullopt);
}

TEST_F(HostAnswersTest, AreNotLookedAtIfNoneAreNeeded) {
  for (const auto* answer : {"('error: the disk is full',)", "(false, '')", "()", "(@av [],)"})
    for (const Request& request : requests())
      if (std::string_view(request.answerType) == "()") {
        host.answerUnchecked(request.method, answer);
        EXPECT_EQ(request.perform(), std::nullopt) << request.method << answer;
      }
}

TEST_F(HostAnswersTest, OfAWrongTypeAreFailures) {
  for (const auto* answer : {"()", "('true',)", "('text', true)", "(true, 'text', 'more')", "(1, 'text')", "(1,)"})
    for (const Request& request : requests())
      if (std::string_view(request.answerType) != "()") {
        host.answerUnchecked(request.method, answer);
        expectScriptFailure(request.perform(), std::string(request.method) + answer);
      }
}

TEST_F(HostAnswersTest, ThatRefuseAreFailures) {
  for (const auto* name : {"org.freedesktop.DBus.Error.AccessDenied", "org.freedesktop.DBus.Error.UnknownMethod",
                           "com.quillary.Deskloom.Error.Disk", "org.freedesktop.DBus.Error.Timeout"})
    for (const Request& request : requests()) {
      host.answer(request.method, [name](GDBusMethodInvocation* invocation) {
        g_dbus_method_invocation_return_dbus_error(invocation, name, "No.");
      });
      expectScriptFailure(request.perform(), std::string(request.method) + " " + name);
    }
}

TEST_F(HostAnswersTest, AreWaitedForOnEachThreadByItself) {
  // Answers both calls after both have come.
  GDBusMethodInvocation* first = nullptr;
  host.answer("GetConfig", [&first](GDBusMethodInvocation* invocation) {
    if (first == nullptr) {
      first = invocation;
      return;
    }
    for (GDBusMethodInvocation* asked : {first, invocation})
      g_dbus_method_invocation_return_value(asked, g_variant_new("(bs)", TRUE, "text"));
  });
  auto other = std::async(std::launch::async, [this] { return api.getConfig("B"); });
  EXPECT_EQ(api.getConfig("A"), "text");
  EXPECT_EQ(other.get(), "text");
}

class LostHostTest : public PluginTest {};

TEST_F(LostHostTest, FailsEachRequestUnderWay) {
  for (const Request& request : requests()) {
    FakeDeskloomHost host;
    host.answer(request.method, [&host](GDBusMethodInvocation* invocation) {
      host.disappear();
      g_object_unref(invocation);
    });
    expectScriptFailure(request.perform(), request.method);
    EXPECT_EQ(host.calls().size(), 1U) << request.method;
  }
}

TEST_F(LostHostTest, FailsARequestAsSoonAsAHungHostIsKilled) {
  for (const Request& request : requests()) {
    const HostProcess host(DESKLOOM_HOST_PROGRAM);
    host.hang();
    TestSupport::BusMonitor calls(std::string("type='method_call',destination='") + hostName + '\'');
    auto error = std::async(std::launch::async, request.perform);
    static_cast<void>(calls.await(1));
    EXPECT_EQ(error.wait_for(0s), std::future_status::timeout) << request.method << " waits for the answer";
    host.crash();
    ASSERT_EQ(error.wait_for(atOnce), std::future_status::ready) << request.method;
    expectScriptFailure(error.get(), request.method);
  }
}

class AbsentHostTest : public PluginTest {
 protected:
  static std::vector<std::string> names(const char* method) {
    const auto bus = SessionBus::connect();
    const auto reply = bus->call(DesktopSupport::busDaemonMethod(method), nullptr, G_VARIANT_TYPE("(as)"), atOnce);
    const char** list = nullptr;
    g_variant_get(reply->get(), "(^a&s)", &list);
    const std::unique_ptr<void, DesktopSupport::ReleasedBy<g_free>> owner(static_cast<void*>(list));
    std::vector<std::string> names;
    for (; *list != nullptr; ++list)
      names.emplace_back(*list);
    return names;
  }
};

TEST_F(AbsentHostTest, IsNotStartedToBeAsked) {
  ASSERT_THAT(names("ListActivatableNames"), testing::Contains(hostName)) << "the bus could start it";
  for (const Request& request : requests())
    expectScriptFailure(request.perform(), request.method);
  EXPECT_THAT(names("ListNames"), testing::Not(testing::Contains(hostName)));
}

}  // namespace
