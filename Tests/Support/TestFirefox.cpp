#include "Tests/Support/TestFirefox.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "Tests/Support/FolderChanges.h"

namespace TestSupport {

namespace {

using nlohmann::json;
using std::filesystem::path;

constexpr std::string_view portFile = "MarionetteActivePort";

/// No extensions that packages have installed, no pages except those that a test opens, no questions, and no
/// connections to other machines.
constexpr std::string_view usualPreferences = R"({
  "app.normandy.enabled": false,
  "app.update.disabledForTesting": true,
  "browser.aboutwelcome.enabled": false,
  "browser.newtabpage.enabled": false,
  "browser.safebrowsing.malware.enabled": false,
  "browser.safebrowsing.phishing.enabled": false,
  "browser.shell.checkDefaultBrowser": false,
  "browser.startup.homepage_override.mstone": "ignore",
  "browser.startup.page": 0,
  "browser.tabs.warnOnClose": false,
  "datareporting.policy.dataSubmissionEnabled": false,
  "extensions.enabledScopes": 5,
  "extensions.update.enabled": false,
  "marionette.port": 0,
  "network.captive-portal-service.enabled": false,
  "network.connectivity-service.enabled": false,
  "network.proxy.http": "127.0.0.1",
  "network.proxy.http_port": 9,
  "network.proxy.no_proxies_on": "127.0.0.1",
  "network.proxy.ssl": "127.0.0.1",
  "network.proxy.ssl_port": 9,
  "network.proxy.type": 1,
  "services.settings.server": "data:,",
  "toolkit.telemetry.enabled": false
})";

void writePreferences(const path& profile, const json& more) {
  json preferences = json::parse(usualPreferences);
  preferences.update(more);
  std::filesystem::create_directories(profile);
  std::ofstream file(profile / "user.js");
  for (const auto& [name, value] : preferences.items())
    file << "user_pref(" << json(name) << ", " << value << ");\n";
}

// The file exists before the port is written to it.
std::uint16_t awaitPort(const path& profile, const FolderChanges& changes) {
  std::uint16_t port = 0;
  if (!changes.waitUntil([&] { return static_cast<bool>(std::ifstream(profile / portFile) >> port); }))
    throw std::runtime_error("Firefox did not start");
  return port;
}

}  // namespace

TestFirefox TestFirefox::start(const Preferences& preferences) {
  const path folder = path(std::getenv("XDG_CONFIG_HOME")) / "mozilla/firefox";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "profiles.ini")
      << "[General]\nStartWithLastProfile=1\nVersion=2\n\n[Profile0]\nName=test\nIsRelative=1\nPath=1.test\n";
  return {{"-P", "test"}, folder / "1.test", preferences};
}

TestFirefox TestFirefox::startIn(const path& profile, const Preferences& preferences) {
  return {{"--profile", profile}, profile, preferences};
}

TestFirefox::TestFirefox(std::vector<std::string> options, path profile, const Preferences& preferences)
    : options_(std::move(options)), profile_(std::move(profile)) {
  writePreferences(profile_, preferences);
  startAgain();
}

void TestFirefox::startAgain() {
  std::filesystem::remove(profile_ / portFile);
  const FolderChanges changes(profile_);
  // It prints a lot.
  std::vector<std::string> arguments = {"sh",          "-c",           "exec \"$@\" >/dev/null 2>&1", "sh",
                                        "firefox-esr", "--marionette", "--remote-allow-system-access"};
  arguments.insert(arguments.end(), options_.begin(), options_.end());
  process_.emplace(arguments,
                   ChildProcess::Options{.environment = {{"MOZ_CRASHREPORTER_DISABLE", "1"}}, .hasHelpers = true});
  control_.emplace(awaitPort(profile_, changes));
}

void TestFirefox::quit() {
  control_->quit();
  control_.reset();
  process_->wait();
}

void TestFirefox::crash() {
  kill(process_->pid(), SIGKILL);
  control_.reset();
  process_->wait();
}

}  // namespace TestSupport
