// A launch that asks for tabs, from the launch URL to the command.

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Text/PercentEncoding.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/PageServer.h"
#include "Tests/Support/TestChromium.h"

namespace {

using testing::ElementsAre;
using testing::Pair;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;
using TestSupport::TestChromium;

constexpr std::string_view commandPrefix = "deskloom://gleanery/";

/// The tabs that a command carries, as pairs of title and address.
std::vector<std::pair<std::string, std::string>> tabs(const std::string& command) {
  EXPECT_TRUE(command.starts_with(commandPrefix)) << command;
  const auto payload = Platform::percentDecoded(std::string_view(command).substr(commandPrefix.size()));
  const auto resources = DeskloomSDK::decodeResources(payload).value();
  std::vector<std::pair<std::string, std::string>> result;
  for (const auto& resource : resources) {
    EXPECT_EQ(resource.type(), DeskloomSDK::ResourceType::website);
    result.emplace_back(resource.name(), resource.url().absoluteString());
  }
  return result;
}

constexpr const char* listTitles = R"(tell application "Google Chrome" to get title of every tab of window 1)";

TEST(BrowserTabs, ReachTheHostWithoutThePagesOfTheBrowserItself) {
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  const TestSupport::PageServer server;
  // Not with its page for new tabs, which starts as about:blank.
  TestChromium browser({"--remote-debugging-port=0", server.url("one")});
  for (const std::string& page : {std::string("chrome://version/"), server.url("two?a=b|c")})
    browser.run("chrome.tabs.create({url: '" + page + "'})");
  const auto isKnown = [] { return TestSupport::textOfScript(listTitles) == "Page oneAbout VersionPage two?a=b|c"; };
  ASSERT_TRUE(TestSupport::FolderChanges(TestChromium::userData()).waitUntil(isKnown));
  EXPECT_EQ(TestSupport::run({GLEANERY_PROGRAM, "deskloomplugin://runCommand/chrome"}), 0);
  EXPECT_THAT(tabs(host.nextLine()),
              ElementsAre(Pair("Page one", server.url("one")), Pair("Page two?a=b|c", server.url("two?a=b%7Cc"))));
}

TEST(BrowserTabs, AreNoneIfNoBrowserRuns) {
  HostProcess host(DESKLOOM_HOST_PROGRAM);
  for (const char* provider : {"safari", "chrome"}) {
    ChildProcess plugin({GLEANERY_PROGRAM, std::string("deskloomplugin://runCommand/") + provider},
                        {.captureErrors = true});
    EXPECT_THAT(plugin.readAll(), testing::HasSubstr("Application isn’t running."));
    EXPECT_EQ(plugin.wait(), 0);
    EXPECT_EQ(host.nextLine(), "deskloom://gleanery/%5B%5D");
  }
}

}  // namespace
