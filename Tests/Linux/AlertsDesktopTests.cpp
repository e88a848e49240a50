// Alerts on screen, with the real module: how they take turns, and what ends them.

#include <atomic>
#include <filesystem>
#include <functional>
#include <future>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <glib.h>
#include <gmock/gmock.h>

#include "Linux/Bundle.h"
#include "Linux/Windows.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/TestDesktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using TestSupport::TestDesktop;

/// Calls `function` from the main context as soon as it runs.
void onMainContext(std::function<void()> function) {
  const auto call = [](gpointer data) -> gboolean {
    (*static_cast<std::function<void()>*>(data))();
    return G_SOURCE_REMOVE;
  };
  const auto release = [](gpointer data) { delete static_cast<std::function<void()>*>(data); };
  g_idle_add_full(G_PRIORITY_DEFAULT, call, new std::function<void()>(std::move(function)), release);
}

/// Waits until an alert is the only window and ready for the user, and yields it.
xcb_window_t awaitAlert(const TestDesktop& desktop, xcb_window_t previous = XCB_WINDOW_NONE) {
  std::vector<xcb_window_t> clients;
  EXPECT_TRUE(desktop.waitUntil([&] {
    clients = desktop.clients();
    if (clients.size() != 1 || clients[0] == previous)
      return false;
    desktop.watch(clients[0]);
    return desktop.isReady(clients[0]);
  }));
  return clients.empty() ? xcb_window_t{XCB_WINDOW_NONE} : clients[0];
}

void close(const TestDesktop& desktop, xcb_window_t alert) {
  desktop.askWindowManager(alert, "_NET_CLOSE_WINDOW");
}

class AlertsTest : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
    EXPECT_THAT(log.messages, IsEmpty());
  }

  using Use = std::function<void(const TestDesktop&)>;

  /// Shows an alert and notes when it has been dismissed.
  void show(const std::string& message, const std::vector<std::string>& buttons = {}) {
    alerts.runModal({.messageText = message, .buttons = buttons});
    dismissed.push_back(message);
  }

  /// Shows an alert while a user, with a connection of their own, does what `use` does.
  void showTo(const Use& use, const std::string& message, const std::vector<std::string>& buttons = {}) {
    const std::jthread user([&] { use(TestDesktop()); });
    show(message, buttons);
  }

  TestDesktop desktop;
  Platform::Fake::FakeLog log;
  Platform::Fake::FakeStrings strings;
  Platform::AppleEventManager appleEvents;
  Platform::NotificationCenter notifications;
  Linux::Application application{appleEvents, notifications};
  Linux::Alerts alerts{windows(), application, strings, log};
  std::vector<std::string> dismissed;

 private:
  /// The toolkit can be opened once in a process.
  static Linux::Windows& windows() {
    static const Linux::Bundle bundle(std::filesystem::path(DESKLOOM_WINDOWS_PROGRAM).parent_path());
    static Platform::Fake::FakeLog windowLog;
    static Linux::Windows opened(bundle, windowLog);
    return opened;
  }
};

TEST_F(AlertsTest, TheCallerWaitsWhileTheMainContextRuns) {
  std::promise<bool> wasThere;
  onMainContext([&] { wasThere.set_value(dismissed.empty()); });
  const auto use = [&](const TestDesktop& desk) {
    EXPECT_TRUE(wasThere.get_future().get());
    close(desk, awaitAlert(desk));
  };
  showTo(use, "alert");
  EXPECT_THAT(dismissed, ElementsAre("alert"));
}

TEST_F(AlertsTest, OneThatIsAskedForMeanwhileWaitsItsTurn) {
  const auto use = [this](const TestDesktop& desk) {
    const xcb_window_t first = awaitAlert(desk);
    std::promise<void> isAsked;
    onMainContext([&] {
      isAsked.set_value();
      show("second");
    });
    isAsked.get_future().wait();
    EXPECT_EQ(awaitAlert(desk), first);
    close(desk, first);
    close(desk, awaitAlert(desk, first));
  };
  showTo(use, "first");
  EXPECT_THAT(dismissed, ElementsAre("second", "first")) << "the first caller's wait is below the second's";
}

TEST_F(AlertsTest, TerminatingEndsOneThatIsThere) {
  onMainContext([this] { application.terminate(); });
  show("alert");
  EXPECT_THAT(dismissed, ElementsAre("alert"));
}

TEST_F(AlertsTest, OneThatIsAskedForWhileTerminatingIsLoggedInstead) {
  application.terminate();
  show("alert");  // returns, though nobody dismisses it
  EXPECT_THAT(std::exchange(log.messages, {}),
              ElementsAre("alert", "the alert could not be shown: the application is terminating"));
}

TEST_F(AlertsTest, TerminatingLeavesNoTurnToOneThatWaits) {
  onMainContext([this] {
    onMainContext([this] { application.terminate(); });
    show("second");
  });
  show("first");
  EXPECT_THAT(dismissed, ElementsAre("second", "first"));
  EXPECT_THAT(std::exchange(log.messages, {}),
              ElementsAre("second", "the alert could not be shown: the application is terminating"));
}

TEST_F(AlertsTest, HasTheButtonsItIsGivenAndElseOneInTheUsersLanguage) {
  strings.translations = {{"OK", "Einverstanden"}};
  const auto closeIt = [](const TestDesktop& desk) { close(desk, awaitAlert(desk)); };
  showTo(closeIt, "no button");
  EXPECT_EQ(strings.comments.at("OK"), "OK button");
  strings.comments.clear();
  ASSERT_TRUE(desktop.waitUntil([this] { return desktop.clients().empty(); }));
  showTo(closeIt, "two buttons", {"Yes", "No"});
  EXPECT_THAT(strings.comments, IsEmpty());
}

}  // namespace
