#pragma once

#include <functional>
#include <string>

#include <glib.h>
#include <gtest/gtest.h>

#include "Linux/Services.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/TemporaryFolder.h"

/// A plug-in on the real desktop, whose alerts are recorded instead of shown.
class ConfiguredPluginTest : public testing::Test {
 protected:
  ConfiguredPluginTest() {
    folder.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n");
    desktop.bundle = Linux::Bundle(folder.path());
  }

  /// Runs the main context until `condition` holds.
  static void runUntil(const std::function<bool()>& condition) {
    while (!condition())
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }

  /// Runs the main context until an alert is recorded. Yields the alert.
  Platform::Alert awaitAlert() {
    runUntil([this] { return !alerts.shown.empty(); });
    Platform::Alert alert = alerts.shown.front();
    alerts.shown.clear();
    return alert;
  }

  void expectReadAlert(const Platform::Alert& alert, const std::string& reason) {
    EXPECT_EQ(alert.messageText, "Could not read action data in Deskloom.");
    EXPECT_EQ(alert.informativeText, reason);
    EXPECT_EQ(alert.buttons, std::vector<std::string>{"OK"});
  }

  void quit() { desktop.application.postWillTerminate(); }

  TestSupport::TemporaryFolder folder;
  Linux::Services desktop;
  Platform::Fake::FakeAlerts alerts;
  Platform::Services services{&desktop.application, desktop.appleEvents, desktop.notifications,
                              desktop.scripts,      desktop.workspace,   alerts,
                              desktop.windows,      desktop.bundle,      desktop.strings,
                              desktop.log,          desktop.queues,      desktop.clock,
                              &desktop.updater};
  Platform::ServicesInstallation installation{services};
};
