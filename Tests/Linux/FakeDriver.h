#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Platform/Fake/FakeServices.h"

namespace ServicesContract {

/// A fake desktop that behaves as the tests expect of a real one.
class FakeDriver {
 public:
  Platform::AppleEventManager& appleEvents() { return desktop_.appleEvents; }
  Platform::NotificationCenter& notifications() { return desktop_.notifications; }
  Platform::Application& application() { return desktop_.application; }
  Platform::Strings& strings() { return desktop_.strings; }
  Platform::ScriptEngine& scripts() { return desktop_.scripts; }
  Platform::Queues& queues() { return desktop_.queues; }
  Platform::Clock& clock() { return desktop_.clock; }
  Platform::Workspace& workspace() { return desktop_.workspace; }
  Platform::Alerts& alerts() { return desktop_.alerts; }
  Platform::Windows& windows() { return desktop_.windows; }
  Platform::Bundle& bundle() { return desktop_.bundle; }
  Platform::Log& log() { return desktop_.log; }
  Platform::Updater& updater() { return desktop_.updater; }

  void deliver(std::string launchURL) { desktop_.application.deliver(std::move(launchURL)); }
  std::vector<std::string> undelivered() { return desktop_.application.undelivered; }

  /// Launches the application with these launch URLs, and runs it to its end if they end it.
  void launch(const std::vector<std::string>& launchURLs) {
    for (const std::string& url : launchURLs)
      desktop_.application.deliver(url);
    desktop_.application.finishLaunching();
  }

  void expectText(std::string text) { desktop_.scripts.answerText(std::move(text)); }
  void expectNoText() { desktop_.scripts.answerWithoutText(); }
  void expectFailure(int number, std::string message) { desktop_.scripts.fail(number, std::move(message)); }
  void expectRefusal() { desktop_.scripts.refuse(); }

  /// Runs what is queued for the main thread until `condition` holds.
  void runMainUntil(const std::function<bool()>& condition) {
    while (!condition())
      desktop_.queues.advance(std::chrono::seconds(0));
  }
  /// Runs what is queued for the main thread now.
  void runMain() { desktop_.queues.runMainQueue(); }

  std::vector<std::string> received() { return desktop_.workspace.opened; }

  /// Shows an alert to a user, who dismisses it after `whileShown`.
  void showToUser(const Platform::Alert& alert, const std::function<void()>& whileShown) {
    desktop_.alerts.whileShown = [&](const Platform::Alert&) { whileShown(); };
    desktop_.alerts.runModal(alert);
  }
  bool showsAlerts() { return !desktop_.alerts.shown.empty(); }

  bool isOnScreen(const std::string& title) {
    return std::ranges::any_of(desktop_.windows.made,
                               [&](const auto& window) { return window->isVisible && window->content.title == title; });
  }
  void awaitOnScreen(const std::string& title) { EXPECT_TRUE(isOnScreen(title)); }
  void awaitNoWindow() {
    EXPECT_TRUE(std::ranges::none_of(desktop_.windows.made, [](const auto& window) { return window->isVisible; }));
  }

  void describe(const std::string& key, const std::string& value) { desktop_.bundle.entries[key] = value; }
  std::vector<std::string> logged(const std::function<void()>& write) {
    write();
    return desktop_.log.messages;
  }
  int checksBegun() { return desktop_.updater.checks; }

 private:
  Platform::Fake::FakeServices desktop_;
};

}  // namespace ServicesContract
