// A plug-in that does what its launch URLs say: deskloomplugin://run/save+quit saves and quits. Some steps take a
// value: deskloomplugin://run/send=17 sends deskloom://sent/17. "launched" sends deskloom://launched and quits when
// launching has finished.

#include <chrono>
#include <csignal>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <thread>
#include <utility>

#include "DeskloomSDK/Configuration/LocalConfigProvider.h"
#include "DeskloomSDK/DeskloomPlugin.h"
#include "DeskloomSDK/Resources/Command.h"
#include "Platform/Application.h"
#include "Platform/Services.h"

namespace {

struct Options {
  int count = 0;
};
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Options, count)

class TestPlugin : public Platform::ApplicationDelegate, public Platform::WindowDelegate {
 public:
  TestPlugin() {
    auto& actions = plugin_.actionController;
    actions.onRun = [this](const std::string& steps) { perform(steps); };
    actions.onEdit = [this](const std::string& steps) { perform(steps); };
    Platform::services().appleEvents.setEventHandler(
        Platform::internetEventClass, Platform::getURLEventID,
        [&actions](const Platform::AppleEvent& event, Platform::AppleEvent&) { actions.handleURLEvent(event); });
  }

  void applicationDidFinishLaunching(const Platform::Notification&) override {
    if (!isToldOfLaunch_)
      return;
    send("launched");
    quit();
  }
  void windowWillClose(const Platform::Notification&) override { quit(); }

 private:
  void perform(const std::string& steps) {
    const std::map<std::string, std::function<void()>> known = {
        {"launched", [this] { isToldOfLaunch_ = true; }},
        {"read", [this] { provider_ = DeskloomSDK::LocalConfigProvider<Options>::make("A", {}); }},
        {"save", [this] { save(); }},
        {"work", [] { std::this_thread::sleep_for(std::chrono::milliseconds(1500)); }},
        {"send", [] { send("sent"); }},
        {"later", [] { sendLater(); }},
        {"alert", [] { showHostileAlert(); }},
        {"window", [this] { showWindow(); }},
        {"die", [] { std::raise(SIGKILL); }},
        {"quit", [] { quit(); }}};
    const std::map<std::string, std::function<void(const std::string&)>> withValue = {
        {"send", [](const std::string& data) { send("sent", data); }},
        {"times", [](const std::string& count) { sendNumbered(std::stoul(count)); }},
        {"payload", [](const std::string& bytes) { send("payload", alphabet(std::stoul(bytes))); }}};
    std::istringstream words(steps);
    for (std::string step; std::getline(words, step, '+');) {
      const auto name = step.substr(0, step.find('='));
      if (name == step)
        known.at(name)();
      else
        withValue.at(name)(step.substr(name.size() + 1));
    }
  }

  void save() {
    ++provider_->config.count;
    provider_->save();
  }

  static void send(const std::string& name, std::optional<std::string> data = std::nullopt) {
    static_cast<void>(DeskloomSDK::Command(name, std::move(data)).send());
  }

  /// Sends deskloom://times/1 and so on up to `count`.
  static void sendNumbered(std::size_t count) {
    for (std::size_t number = 1; number <= count; ++number)
      send("times", std::to_string(number));
  }

  /// A text of this length: the alphabet, repeated.
  static std::string alphabet(std::size_t bytes) {
    std::string text(bytes, 'a');
    for (std::size_t index = 0; index < bytes; ++index)
      text[index] = static_cast<char>('a' + index % 26);
    return text;
  }

  /// Sends from a background queue, as a plug-in does that has to wait for something.
  static void sendLater() {
    auto& queues = Platform::services().queues;
    queues.runInBackground([&queues] {
      queues.runOnMain([] {
        send("later");
        quit();
      });
    });
  }

  /// Shows an alert with texts that do harm if they are not made printable.
  static void showHostileAlert() {
    Platform::services().alerts.runModal(
        {.messageText = "disk\u202Egpj", .informativeText = "one\n\x1b[2Jtwo", .buttons = {"OK"}});
  }

  void showWindow() {
    window_ = Platform::services().windows.makeWindow({.title = "Test Plug-in"});
    window_->setDelegate(this);
    window_->makeKeyAndOrderFront();
  }

  static void quit() { Platform::sharedApplication().terminate(); }

  DeskloomSDK::DeskloomPlugin plugin_{{}};
  bool isToldOfLaunch_ = false;
  std::shared_ptr<DeskloomSDK::LocalConfigProvider<Options>> provider_;
  std::unique_ptr<Platform::Window> window_;
};

}  // namespace

int main(int argumentCount, char** arguments) {
  return Platform::applicationMain(argumentCount, arguments, [] { return std::make_unique<TestPlugin>(); });
}
