// A plug-in that does what its launch URLs say: deskloomplugin://run/save+quit saves and quits.

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <thread>

#include "DeskloomSDK/Command.h"
#include "DeskloomSDK/DeskloomPlugin.h"
#include "DeskloomSDK/LocalConfigProvider.h"
#include "Platform/ApplicationMain.h"
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

  void applicationDidFinishLaunching(const Platform::Notification&) override {}
  void windowWillClose(const Platform::Notification&) override { quit(); }

 private:
  void perform(const std::string& steps) {
    const std::map<std::string, std::function<void()>> known = {
        {"read", [this] { provider_ = DeskloomSDK::LocalConfigProvider<Options>::make("A", {}); }},
        {"save", [this] { save(); }},
        {"work", [] { std::this_thread::sleep_for(std::chrono::milliseconds(1500)); }},
        {"send", [] { send("sent"); }},
        {"later", [] { sendLater(); }},
        {"window", [this] { showWindow(); }},
        {"quit", [] { quit(); }}};
    std::istringstream words(steps);
    for (std::string step; std::getline(words, step, '+');)
      known.at(step)();
  }

  void save() {
    ++provider_->config.count;
    provider_->save();
  }

  static void send(const std::string& name) { static_cast<void>(DeskloomSDK::Command(name, std::nullopt).send()); }

  /// As a plug-in does that has to wait for something.
  static void sendLater() {
    auto& queues = Platform::services().queues;
    queues.runInBackground([&queues] {
      queues.runOnMain([] {
        send("later");
        quit();
      });
    });
  }

  void showWindow() {
    window_ = Platform::services().windows.makeWindow({.title = "Test Plug-in"});
    window_->setDelegate(this);
    window_->makeKeyAndOrderFront();
  }

  static void quit() { Platform::sharedApplication().terminate(); }

  DeskloomSDK::DeskloomPlugin plugin_{{}};
  std::shared_ptr<DeskloomSDK::LocalConfigProvider<Options>> provider_;
  std::unique_ptr<Platform::Window> window_;
};

}  // namespace

int main(int argumentCount, char** arguments) {
  return Platform::applicationMain(argumentCount, arguments, [] { return std::make_unique<TestPlugin>(); });
}
