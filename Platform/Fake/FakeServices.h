#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Fake/Events.h"
#include "Platform/Fake/FakeApplication.h"
#include "Platform/Fake/FakeQueues.h"
#include "Platform/Fake/FakeWindows.h"
#include "Platform/Services.h"

namespace Platform::Fake {

/// An interpreter that records the sources of its scripts and answers as the test has told it to.
class FakeScriptEngine : public ScriptEngine {
 public:
  /// Adds the scripts to `events` too, unless that is null.
  explicit FakeScriptEngine(Events* events = nullptr) : events_(events) {}

  std::optional<ScriptOutcome> run(std::string_view source) override;

  /// Answers every script with this text.
  void answerText(std::string text);
  /// Answers every script with success, without a result.
  void answerNothing();
  /// Answers every script with a result that has no text.
  void answerWithoutText();
  /// Fails every script with this error.
  void fail(int number, std::string message);
  /// Refuses every source, as if it were not text.
  void refuse();

  /// Answers a script. If it is empty, as at first, every script succeeds without a result.
  std::function<std::optional<ScriptOutcome>(std::string_view source)> answer;
  /// The sources run so far.
  std::vector<std::string> sources;

 private:
  Events* events_;
};

/// Records the URLs that are opened, on any thread.
class FakeWorkspace : public Workspace {
 public:
  /// Adds them to `events` too, unless that is null.
  explicit FakeWorkspace(Events* events = nullptr) : events_(events) {}

  void open(URL url) override;

  /// The texts of the URLs, in order.
  std::vector<std::string> opened;

 private:
  Events* events_;
  std::mutex mutex_;
};

/// Records the alerts that are shown. Each is dismissed at once, or when `whileShown` returns.
class FakeAlerts : public Alerts {
 public:
  /// Adds them to `events` too, unless that is null. Shows none after this application, if there is one, was asked to
  /// terminate.
  explicit FakeAlerts(Events* events = nullptr, const FakeApplication* application = nullptr)
      : events_(events), application_(application) {}

  void runModal(const Alert& alert) override;

  /// In order.
  std::vector<Alert> shown;
  /// Called while an alert is shown; may be empty. A test can look at the application then, or deliver a launch URL.
  std::function<void(const Alert& alert)> whileShown;

 private:
  Events* events_;
  const FakeApplication* application_;
};

/// A bundle with the path and the information that the test sets.
class FakeBundle : public Bundle {
 public:
  [[nodiscard]] std::filesystem::path path() const override { return bundlePath; }
  [[nodiscard]] std::optional<std::string> information(std::string_view key) const override;

  /// Its path, which need not exist.
  std::filesystem::path bundlePath = "/plugins/com.example.Plugin";
  /// Its information, by key.
  std::map<std::string, std::string, std::less<>> entries = {{"Identifier", "com.example.Plugin"}};
};

/// Translations that the test sets.
class FakeStrings : public Strings {
 public:
  [[nodiscard]] std::string localized(std::string_view key, std::string_view comment) const override;

  /// The translations by key. A key without one is shown itself.
  std::map<std::string, std::string, std::less<>> translations;
  /// The comments of the keys that were looked up.
  mutable std::map<std::string, std::string, std::less<>> comments;
};

/// Counts the checks for updates.
class FakeUpdater : public Updater {
 public:
  /// Adds them to `events` too, unless that is null.
  explicit FakeUpdater(Events* events = nullptr) : events_(events) {}

  void checkForUpdatesInBackground() override;

  /// How many were begun.
  int checks = 0;

 private:
  Events* events_;
};

/// Records the messages that are logged.
class FakeLog : public Log {
 public:
  /// Adds them to `events` too, unless that is null.
  explicit FakeLog(Events* events = nullptr) : events_(events) {}

  void write(std::string_view message) override;

  /// In order.
  std::vector<std::string> messages;

 private:
  Events* events_;
};

/// A whole desktop of fakes, for tests of code that runs on `Platform`. Its services are the ambient ones for as long
/// as it lives. Its fields record what they were asked for, and a test can set what they answer.
class FakeServices {
 public:
  /// What happened, in one order across the services. A test may clear it.
  Events events;
  /// The services; each is described at its class. @{
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
  /// What `services()` yields. A test may set the application or the updater to null.
  Services services{&application, appleEvents, notifications, scripts, workspace, alerts,  windows,
                    bundle,       strings,     log,           queues,  clock,     &updater};

 private:
  ServicesInstallation installation_{services};
};

}  // namespace Platform::Fake
