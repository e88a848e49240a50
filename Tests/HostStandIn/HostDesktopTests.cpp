#include <chrono>
#include <expected>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DesktopSupport/Bus/SessionBus.h"
#include "HostStandIn/BusName.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::BusError;
using DesktopSupport::SessionBus;
using DesktopSupport::VariantHandle;
using TestSupport::ChildProcess;

const std::string name = "com.quillary.Deskloom";

using Reply = std::expected<VariantHandle, BusError>;

Reply call(const std::string& interface, const std::string& method, GVariant* arguments, const char* replyType = "()") {
  return SessionBus::connect()->call({name, "/com/quillary/Deskloom", interface, method}, arguments,
                                     G_VARIANT_TYPE(replyType), std::chrono::seconds(60));
}

Reply open(const std::vector<std::string>& urls) {
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE("as"));
  for (const std::string& url : urls)
    g_variant_builder_add(&list, "s", url.c_str());
  return call("org.freedesktop.Application", "Open", g_variant_new("(asa{sv})", &list, nullptr));
}

Reply script(const std::string& method, std::initializer_list<std::string> arguments, const char* replyType = "()") {
  GVariantBuilder tuple;
  g_variant_builder_init(&tuple, G_VARIANT_TYPE_TUPLE);
  for (const std::string& argument : arguments)
    g_variant_builder_add(&tuple, "s", argument.c_str());
  return call(name + ".Scripting", method, g_variant_builder_end(&tuple), replyType);
}

/// The printed answer to a command that may yield a text, or "error".
std::string text(const std::string& method, std::initializer_list<std::string> arguments) {
  const Reply reply = script(method, arguments, "(bs)");
  if (!reply)
    return "error";
  const DesktopSupport::CharsHandle printed(g_variant_print(reply->get(), FALSE));
  return printed.get();
}

/// Starts a host and waits until its name is on the bus.
ChildProcess start(std::vector<std::string> options) {
  options.insert(options.begin(), DESKLOOM_HOST_PROGRAM);
  ChildProcess host(options);
  TestSupport::awaitOwner(name);
  return host;
}

TEST(Host, PrintsEachURLAsItCame) {
  ChildProcess host = start({});
  EXPECT_TRUE(open({"deskloom://gleanery/%5B%5D"}));
  EXPECT_EQ(host.readLine(), "deskloom://gleanery/%5B%5D");
  EXPECT_TRUE(open({"Deskloom://x/%e4%B8", "deskloom:"}));
  EXPECT_EQ(host.readLine(), "Deskloom://x/%e4%B8");
  EXPECT_EQ(host.readLine(), "deskloom:");
}

TEST(Host, ReceivesFiveMegabytesWhole) {
  const std::string url = "deskloom://gleanery/" + std::string(5U << 20U, 'x') + "end";
  ChildProcess host = start({"--exit-after", "1"});
  EXPECT_TRUE(open({url}));
  EXPECT_TRUE(host.readLine() == url);
  EXPECT_EQ(host.wait(), 0);
}

TEST(Host, RefusesACallWithAnInvalidURLAndPassesOnNoneOfItsURLs) {
  ChildProcess host = start({"--exit-after", "1"});
  const Reply reply = open({"deskloom://first", "file:///etc/passwd"});
  ASSERT_FALSE(reply);
  EXPECT_EQ(reply.error().name, DesktopSupport::BusErrorName::invalidArguments);
  EXPECT_FALSE(open({"deskloom://first\ndeskloom://forged"}));
  EXPECT_TRUE(open({"deskloom://second"}));
  EXPECT_EQ(host.readLine(), "deskloom://second");
  EXPECT_EQ(host.readLine(), std::nullopt);
}

TEST(Host, LeavesAfterTheNumberOfURLsAskedFor) {
  ChildProcess host = start({"--exit-after", "2"});
  EXPECT_TRUE(open({"deskloom://1"}));
  EXPECT_TRUE(open({"deskloom://2"}));
  EXPECT_EQ(host.wait(), 0);
}

TEST(Host, LogsURLsAsTheyCameWhileItPrintsTables) {
  const TestSupport::TemporaryFolder folder;
  const std::filesystem::path log = folder.path() / "log";
  ChildProcess host = start({"--decode", "--exit-after", "1", "--log", log.string()});
  EXPECT_TRUE(open({"deskloom://gleanery/%5B%5D"}));
  EXPECT_EQ(host.readLine(), "(no resources)");
  EXPECT_EQ(host.wait(), 0);

  std::ifstream file(log);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "deskloom://gleanery/%5B%5D\n");
}

TEST(Host, NeedNotBeActivated) {
  ChildProcess host = start({});
  EXPECT_TRUE(call("org.freedesktop.Application", "Activate", g_variant_new("(a{sv})", nullptr)));
  EXPECT_TRUE(
      call("org.freedesktop.Application", "ActivateAction", g_variant_new("(sava{sv})", "any", nullptr, nullptr)));
}

TEST(Host, KeepsConfigurationAsItWasSet) {
  ChildProcess host = start({});
  EXPECT_EQ(text("GetConfig", {"A"}), "(true, '')");
  EXPECT_TRUE(script("SetConfig", {"one\n\"ä\"\\", "A"}));
  EXPECT_TRUE(script("SetGlobalConfig", {"", "A"}));
  EXPECT_EQ(text("GetConfig", {"A"}), "(true, 'one\\n\"ä\"\\\\')");
  EXPECT_EQ(text("GetGlobalConfig", {"A"}), "(true, '')");
  EXPECT_EQ(text("GetGlobalConfig", {"B"}), "(true, '')");
}

TEST(Host, InstallsPlugins) {
  ChildProcess host = start({"--plugin-folder", "/plugins"});
  EXPECT_EQ(text("GetPluginFolderPath", {}), "(true, '/plugins')");
  EXPECT_EQ(text("GetPathOfPlugin", {"N"}), "(false, '')");
  EXPECT_TRUE(script("InstallPlugin", {}));
  EXPECT_EQ(host.readLine(), "install plugin");
  EXPECT_EQ(text("GetPathOfPlugin", {"N"}), "(true, '/plugins/N')");

  const Reply reply = script("GetIsPluginInstalledAtPath", {"/any"}, "(b)");
  ASSERT_TRUE(reply);
  gboolean installed = FALSE;
  g_variant_get(reply->get(), "(b)", &installed);
  EXPECT_NE(installed, FALSE);
}

TEST(Host, RefusesInstallationWhenTold) {
  ChildProcess host = start({"--refuse-installation"});
  const Reply reply = script("InstallPlugin", {});
  ASSERT_FALSE(reply);
  EXPECT_EQ(reply.error().name, "com.quillary.Deskloom.Error.InstallationRefused");
}

TEST(Host, RefusesArgumentsOfOtherTypes) {
  ChildProcess host = start({});
  const Reply reply = script("GetConfig", {}, "(bs)");
  ASSERT_FALSE(reply);
  EXPECT_EQ(reply.error().name, DesktopSupport::BusErrorName::invalidArguments);
}

TEST(Host, LeavesTheNameToTheHostThatHasIt) {
  ChildProcess first = start({});
  ChildProcess second = start({});
  EXPECT_EQ(second.wait(), 1);
  EXPECT_TRUE(open({"deskloom://x"}));
  EXPECT_EQ(first.readLine(), "deskloom://x");
}

TEST(Host, SaysThatItsLogCannotBeWritten) {
  const TestSupport::TemporaryFolder folder;
  // The host never takes the name, so the test does: otherwise `start` would wait for it.
  const auto bus = SessionBus::connect();
  const auto held = HostStandIn::BusName::acquire(*bus, name);
  ASSERT_TRUE(held);
  ChildProcess host = start({"--log", (folder.path() / "missing" / "log").string()});
  EXPECT_EQ(host.wait(), 1);
}

}  // namespace
