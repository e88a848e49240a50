#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Fake/Events.h"
#include "Platform/Fake/FakeApplication.h"
#include "Platform/Fake/FakeClock.h"
#include "Platform/Fake/FakeQueues.h"
#include "Platform/Fake/FakeScriptEngine.h"
#include "Platform/Fake/FakeWindows.h"
#include "Platform/Services.h"

namespace Platform::Fake {

/// Notes the URLs that are opened, on any thread.
class FakeWorkspace : public Workspace {
 public:
  /// Adds them to `events` as well, unless that is null.
  explicit FakeWorkspace(Events* events = nullptr) : events_(events) {}

  void open(URL url) override;

  /// Their texts, in order.
  std::vector<std::string> opened;

 private:
  Events* events_;
  std::mutex mutex_;
};

/// Notes the alerts that are shown. Each is dismissed at once, or when `whileShown` returns.
class FakeAlerts : public Alerts {
 public:
  /// Adds them to `events` as well, unless that is null. Shows none once this application, if there is one, was asked
  /// to terminate.
  explicit FakeAlerts(Events* events = nullptr, const FakeApplication* application = nullptr)
      : events_(events), application_(application) {}

  void runModal(const Alert& alert) override;

  /// In order.
  std::vector<Alert> shown;
  /// What happens while an alert is up: a test looks at the application then, or delivers it a launch URL. May be
  /// empty.
  std::function<void(const Alert& alert)> whileShown;

 private:
  Events* events_;
  const FakeApplication* application_;
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
  /// Adds them to `events` as well, unless that is null.
  explicit FakeUpdater(Events* events = nullptr) : events_(events) {}

  void checkForUpdatesInBackground() override;

  /// How many were begun.
  int checks = 0;

 private:
  Events* events_;
};

/// Notes what is logged.
class FakeLog : public Log {
 public:
  /// Adds it to `events` as well, unless that is null.
  explicit FakeLog(Events* events = nullptr) : events_(events) {}

  void write(std::string_view message) override;

  /// In order.
  std::vector<std::string> messages;

 private:
  Events* events_;
};

/// A whole desktop of fakes, for testing what runs on `Platform` without one. It is the ambient one for as long as it
/// lives; its fields record what was asked of it and can be told what to answer.
class FakeServices {
 public:
  /// What happened, in one order across the services. A test may clear it.
  Events events;
  /// The services; each is what its class says. @{
  AppleEventManager appleEvents;
  NotificationCenter notifications;
  FakeApplication application{appleEvents, notifications, &events};
  FakeScriptEngine scripts{&events};
  FakeWorkspace workspace{&events};
  FakeAlerts alerts{&events, &application};
  FakeWindows windows;
  FakeBundle bundle;
  FakeStrings strings;
  FakeLog log{&events};
  FakeClock clock;
  FakeQueues queues{clock, &application};
  FakeUpdater updater{&events};
  /// @}
  /// What `services()` yields; a test may take the application or the updater away.
  Services services{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                    bundle,       strings,     log,           queues,  clock,     &updater};

 private:
  ServicesInstallation installation_{services};
};

}  // namespace Platform::Fake
