#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Fake/FakeApplication.h"
#include "Platform/Fake/FakeClock.h"
#include "Platform/Fake/FakeQueues.h"
#include "Platform/Fake/FakeScriptEngine.h"
#include "Platform/Fake/FakeWindows.h"
#include "Platform/Services.h"

namespace Platform::Fake {

/// Notes the URLs that are opened.
class FakeWorkspace : public Workspace {
 public:
  void open(const URL& url) override { opened.push_back(url.absoluteString()); }

  /// Their texts, in order.
  std::vector<std::string> opened;
};

/// Notes the alerts that are shown; each is dismissed at once.
class FakeAlerts : public Alerts {
 public:
  void runModal(const Alert& alert) override { shown.push_back(alert); }

  /// In order.
  std::vector<Alert> shown;
};

/// A bundle that is where the test says.
class FakeBundle : public Bundle {
 public:
  [[nodiscard]] std::filesystem::path path() const override { return bundlePath; }
  [[nodiscard]] std::optional<std::string> information(std::string_view key) const override;

  /// Where it is; nothing need be there.
  std::filesystem::path bundlePath = "/plugins/com.example.Plugin";
  /// What it says of itself.
  std::map<std::string, std::string, std::less<>> entries = {{"Identifier", "com.example.Plugin"}};
};

/// Translations that the test has made.
class FakeStrings : public Strings {
 public:
  [[nodiscard]] std::string localized(std::string_view key, std::string_view comment) const override;

  /// The translation of a key; a key that has none is its own.
  std::map<std::string, std::string, std::less<>> translations;
  /// The comments that went with the keys looked up.
  mutable std::map<std::string, std::string, std::less<>> comments;
};

/// Counts the checks that are begun.
class FakeUpdater : public Updater {
 public:
  void checkForUpdatesInBackground() override { ++checks; }

  /// How many were begun.
  int checks = 0;
};

/// Notes what is logged.
class FakeLog : public Log {
 public:
  void write(std::string_view message) override { messages.emplace_back(message); }

  /// In order.
  std::vector<std::string> messages;
};

/// A whole desktop of fakes, for testing what runs on `Platform` without one. It is the ambient one for as long as it
/// lives; its fields record what was asked of it and can be told what to answer.
class FakeServices {
 public:
  /// The services; each is what its class says. @{
  AppleEventManager appleEvents;
  NotificationCenter notifications;
  FakeApplication application{appleEvents, notifications};
  FakeScriptEngine scripts;
  FakeWorkspace workspace;
  FakeAlerts alerts;
  FakeWindows windows;
  FakeBundle bundle;
  FakeStrings strings;
  FakeLog log;
  FakeClock clock;
  FakeQueues queues{clock, &application};
  FakeUpdater updater;
  /// @}
  /// What `services()` yields; a test may take the application or the updater away.
  Services services{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                    bundle,       strings,     log,           queues,  clock,     &updater};

 private:
  ServicesInstallation installation_{services};
};

}  // namespace Platform::Fake
