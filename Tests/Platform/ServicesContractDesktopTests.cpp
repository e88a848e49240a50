// What every set of services promises, held against the fake one and the Linux one alike.

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "Platform/Fake/FakeServices.h"
#include "Platform/Linux/LinuxAlerts.h"
#include "Platform/Linux/LinuxApplication.h"
#include "Platform/Linux/LinuxBundle.h"
#include "Platform/Linux/LinuxClock.h"
#include "Platform/Linux/LinuxLog.h"
#include "Platform/Linux/LinuxQueues.h"
#include "Platform/Linux/LinuxScriptEngine.h"
#include "Platform/Linux/LinuxStrings.h"
#include "Platform/Linux/LinuxUpdater.h"
#include "Platform/Linux/LinuxWindows.h"
#include "Platform/Linux/LinuxWorkspace.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestDesktop.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

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

  /// Launches the application with these launch URLs and sees it to its end, where they end it.
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

  /// Shows an alert to a user who reads it, and dismisses it after `whileShown`.
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

/// The handler of the scheme "contract", an application that the bus knows.
class SchemeHandler {
 public:
  SchemeHandler() {
    const std::filesystem::path folder = std::filesystem::path(std::getenv("XDG_DATA_HOME")) / "applications";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / (std::string(name) + ".desktop"))
        << "[Desktop Entry]\nType=Application\nName=Handler\nExec=false\nDBusActivatable=true\n"
           "MimeType=x-scheme-handler/contract;\n";
    std::ofstream(folder / "mimeapps.list")
        << "[Default Applications]\nx-scheme-handler/contract=" << name << ".desktop\n";
    service_.answer("Open", [this](GDBusMethodInvocation* invocation) {
      const gchar* url = nullptr;
      const DesktopSupport::VariantHandle urls(
          g_variant_get_child_value(g_dbus_method_invocation_get_parameters(invocation), 0));
      g_variant_get_child(urls.get(), 0, "&s", &url);
      received_.emplace_back(url);
      g_dbus_method_invocation_return_value(invocation, nullptr);
    });
  }

  /// To be asked when every URL has been handed over.
  [[nodiscard]] std::vector<std::string> received() const { return received_; }

 private:
  static constexpr const char* name = "com.example.Handler";

  std::vector<std::string> received_;
  TestSupport::FakeService service_{name, "/com/example/Handler",
                                    "<node><interface name='org.freedesktop.Application'><method name='Open'>"
                                    "<arg type='as'/><arg type='a{sv}'/></method></interface></node>"};
};

class LinuxDriver {
 public:
  LinuxDriver() {
    const auto check = folder_.write("update-check", "#!/bin/sh\necho begun > \"$0.begun\"\n");
    std::filesystem::permissions(check, std::filesystem::perms::owner_all);
    mkfifo((check.string() + ".begun").c_str(), 0600);
  }

  Platform::AppleEventManager& appleEvents() { return appleEvents_; }
  Platform::NotificationCenter& notifications() { return notifications_; }
  Platform::Application& application() { return application_; }
  Platform::Strings& strings() { return strings_; }
  Platform::ScriptEngine& scripts() { return scripts_; }
  Platform::Queues& queues() { return queues_; }
  Platform::Clock& clock() { return clock_; }
  Platform::Workspace& workspace() { return workspace_; }
  Platform::Alerts& alerts() { return alerts_; }
  Platform::Windows& windows() { return windows_; }
  Platform::Bundle& bundle() { return bundle_; }
  Platform::Log& log() { return log_; }
  Platform::Updater& updater() { return updater_; }

  void deliver(std::string launchURL) { application_.deliver(std::move(launchURL)); }
  std::vector<std::string> undelivered() { return application_.takeUndelivered(); }

  void launch(const std::vector<std::string>& launchURLs) {
    for (const std::string& url : launchURLs)
      application_.deliver(url);
    application_.run();
    application_.postWillTerminate();
    application_.postWillTerminate();
  }

  // The real engine is told nothing: it runs the source.
  void expectText(const std::string&) {}
  void expectNoText() {}
  void expectFailure(int, const std::string&) {}
  void expectRefusal() {}

  void runMainUntil(const std::function<bool()>& condition) {
    while (!condition())
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }
  void runMain() {
    while (g_main_context_iteration(nullptr, /*may_block=*/FALSE) != FALSE) {
    }
  }

  std::vector<std::string> received() {
    workspace_.finishHandOvers();
    return handler_.received();
  }

  void showToUser(const Platform::Alert& alert, const std::function<void()>& whileShown) {
    const std::jthread user([&] {
      const TestSupport::TestDesktop desk;
      EXPECT_TRUE(desk.waitUntil([&] {
        const auto clients = desk.clients();
        if (clients.size() != 1)
          return false;
        desk.watch(clients[0]);
        return desk.isReady(clients[0]);
      }));
      whileShown();
      desk.askWindowManager(desk.clients().at(0), "_NET_CLOSE_WINDOW");
    });
    alerts_.runModal(alert);
  }
  bool showsAlerts() { return !desktop_.clients().empty(); }

  bool isOnScreen(const std::string& title) {
    return std::ranges::any_of(desktop_.clients(),
                               [&](const auto window) { return desktop_.text(window, "_NET_WM_NAME") == title; });
  }
  void awaitOnScreen(const std::string& title) {
    awaitScreen([&] { return isOnScreen(title); });
  }
  void awaitNoWindow() {
    awaitScreen([&] { return desktop_.clients().empty(); });
  }

  void describe(const std::string& key, const std::string& value) {
    folder_.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n" + key + "=" + value + "\n");
    bundle_ = Platform::Linux::LinuxBundle(folder_.path());
  }
  std::vector<std::string> logged(const std::function<void()>& write) {
    testing::internal::CaptureStderr();
    write();
    std::istringstream text(testing::internal::GetCapturedStderr());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
      lines.push_back(line);
    return lines;
  }
  int checksBegun() {
    std::ifstream pipe(folder_.path() / "update-check.begun");  // opens when the check has opened it
    int begun = 0;
    for (std::string line; std::getline(pipe, line);)
      ++begun;
    ::wait(nullptr);
    return begun;
  }

 private:
  /// The screen changes only while the toolkit has its turns.
  void awaitScreen(const std::function<bool()>& condition) {
    std::atomic<bool> isSo = false;
    const std::jthread user([&] {
      isSo = desktop_.waitUntil(condition);
      over_ = true;
      g_main_context_wakeup(nullptr);
    });
    runMainUntil([&] { return over_.exchange(false); });
    EXPECT_TRUE(isSo);
  }

  /// The toolkit can be opened once in a process.
  static Platform::Linux::WindowModule& module() {
    static Platform::Linux::LinuxBundle bundle(std::filesystem::path(DESKLOOM_WINDOWS_PROGRAM).parent_path());
    static Platform::Linux::WindowModule opened(bundle);
    return opened;
  }

  TestSupport::TemporaryFolder folder_;
  TestSupport::TestDesktop desktop_;
  SchemeHandler handler_;
  std::atomic<bool> over_ = false;
  Platform::AppleEventManager appleEvents_;
  Platform::NotificationCenter notifications_;
  Platform::Linux::LinuxApplication application_{appleEvents_, notifications_};
  Platform::Linux::LinuxLog log_;
  Platform::Linux::LinuxBundle bundle_{
      folder_.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n[Updates]\nFeedURL=file:///feed\n")
          .parent_path()};
  Platform::Linux::LinuxStrings strings_{bundle_};
  Platform::Linux::LinuxScriptEngine scripts_;
  Platform::Linux::LinuxWorkspace workspace_{log_};
  Platform::Linux::LinuxAlerts alerts_{module(), application_, strings_, log_};
  Platform::Linux::LinuxWindows windows_{module(), log_};
  Platform::Linux::LinuxUpdater updater_{bundle_, log_};
  Platform::Linux::LinuxClock clock_;
  Platform::Linux::LinuxQueues queues_{application_};
};

template <typename Driver>
class ServicesContract : public testing::Test {
 protected:
  ServicesContract() {
    for (const auto name :
         {Platform::applicationDidFinishLaunchingNotification, Platform::applicationWillTerminateNotification})
      driver.notifications().addObserver(name, &driver.application(), [this](const Platform::Notification& posted) {
        events.emplace_back(posted.name);
      });
  }

  /// Notes the launch URLs that are delivered; "end" ends the application.
  void handleLaunchURLs() {
    driver.appleEvents().setEventHandler(
        Platform::internetEventClass, Platform::getURLEventID,
        [this](const Platform::AppleEvent& event, Platform::AppleEvent&) {
          events.push_back(event.paramDescriptor(Platform::keyDirectObject)->stringValue.value());
          if (events.back() == "end")
            driver.application().terminate();
        });
  }

  Driver driver;
  std::vector<std::string> events;
};

const std::string finishedLaunching{Platform::applicationDidFinishLaunchingNotification};
const std::string willTerminate{Platform::applicationWillTerminateNotification};

using Drivers = testing::Types<FakeDriver, LinuxDriver>;
TYPED_TEST_SUITE(ServicesContract, Drivers);

TYPED_TEST(ServicesContract, LaunchURLsAreDeliveredOneByOneUntouchedAndBeforeLaunchingFinishes) {
  this->handleLaunchURLs();
  this->driver.notifications().addObserver(
      Platform::applicationDidFinishLaunchingNotification, nullptr,
      [this](const Platform::Notification&) { this->driver.application().terminate(); });
  this->driver.launch({"x:a", "", " not \xFF a URL "});
  EXPECT_THAT(this->events, ElementsAre("x:a", "", " not \xFF a URL ", finishedLaunching, willTerminate));
}

TYPED_TEST(ServicesContract, ALaunchURLThatComesMeanwhileWaitsForTheOneBeingHandled) {
  this->driver.appleEvents().setEventHandler(
      Platform::internetEventClass, Platform::getURLEventID,
      [this](const Platform::AppleEvent& event, Platform::AppleEvent&) {
        const auto url = event.paramDescriptor(Platform::keyDirectObject)->stringValue.value();
        this->events.push_back("begin " + url);
        if (url == "first")
          this->driver.deliver("second");
        else
          this->driver.application().terminate();
        this->events.push_back("end " + url);
      });
  this->driver.launch({"first"});
  EXPECT_THAT(this->events, ElementsAre("begin first", "end first", "begin second", "end second", willTerminate));
}

TYPED_TEST(ServicesContract, AnApplicationThatALaunchURLEndsDoesNotFinishLaunching) {
  this->handleLaunchURLs();
  this->driver.launch({"end"});
  EXPECT_THAT(this->events, ElementsAre("end", willTerminate));
}

TYPED_TEST(ServicesContract, TerminatingIsIdempotent) {
  this->handleLaunchURLs();
  this->driver.appleEvents().setEventHandler(Platform::internetEventClass, Platform::getURLEventID,
                                             [this](const Platform::AppleEvent&, Platform::AppleEvent&) {
                                               this->driver.application().terminate();
                                               this->driver.application().terminate();
                                             });
  this->driver.launch({"x:a"});
  EXPECT_THAT(this->events, ElementsAre(willTerminate));
}

TYPED_TEST(ServicesContract, ATextResultIsYieldedAsItIs) {
  this->driver.expectText(" Café ");
  const auto outcome = this->driver.scripts().run("\" Café \"");
  ASSERT_TRUE(outcome && outcome->result);
  EXPECT_FALSE(outcome->error);
  EXPECT_EQ(outcome->result->stringValue, " Café ");
}

TYPED_TEST(ServicesContract, ANumberOrAListIsYieldedAsText) {
  this->driver.expectText("3");
  EXPECT_EQ(this->driver.scripts().run("1 + 2")->result->stringValue, "3");
  this->driver.expectText("1two");
  EXPECT_EQ(this->driver.scripts().run("{1, \"two\"}")->result->stringValue, "1two");
}

TYPED_TEST(ServicesContract, ASuccessWithoutTextIsNoFailure) {
  this->driver.expectNoText();
  for (const auto* source : {"missing value", "{name:\"a record\"}", ""}) {
    const auto outcome = this->driver.scripts().run(source);
    ASSERT_TRUE(outcome) << source;
    EXPECT_FALSE(outcome->error) << source;
    EXPECT_FALSE(outcome->result && outcome->result->stringValue) << source;
  }
}

TYPED_TEST(ServicesContract, AFailureIsToldByNumberAndMessage) {
  this->driver.expectFailure(-2701, "Can’t divide 1 by zero.");
  const auto outcome = this->driver.scripts().run("1 / 0");
  ASSERT_TRUE(outcome && outcome->error);
  EXPECT_EQ(outcome->error->number, -2701);
  EXPECT_FALSE(outcome->error->message.empty());
}

TYPED_TEST(ServicesContract, NoScriptIsMadeOfWhatIsNoText) {
  this->driver.expectRefusal();
  EXPECT_FALSE(this->driver.scripts().run("\xFF\xFE"));
}

TYPED_TEST(ServicesContract, AnUntranslatedTextShowsItself) {
  EXPECT_EQ(this->driver.strings().localized("Could not run script", "Error"), "Could not run script");
  EXPECT_EQ(this->driver.strings().localized("", ""), "");
}

TYPED_TEST(ServicesContract, ALaunchURLThatComesAfterTheRequestToTerminateIsKept) {
  this->handleLaunchURLs();
  this->driver.launch({"end", "x:a", "x:b"});
  EXPECT_THAT(this->events, ElementsAre("end", willTerminate));
  EXPECT_THAT(this->driver.undelivered(), ElementsAre("x:a", "x:b"));
}

TYPED_TEST(ServicesContract, WorkForTheMainThreadRunsInItsOrder) {
  for (const std::string name : {"first", "second", "third"})
    this->driver.queues().runOnMain([this, name] {
      EXPECT_TRUE(this->driver.queues().isMainThread());
      this->events.push_back(name);
    });
  EXPECT_THAT(this->events, IsEmpty());
  this->driver.runMainUntil([this] { return this->events.size() == 3; });
  EXPECT_THAT(this->events, ElementsAre("first", "second", "third"));
}

TYPED_TEST(ServicesContract, WorkInTheBackgroundRunsOnAnotherThread) {
  this->driver.queues().runInBackground([this] {
    EXPECT_FALSE(this->driver.queues().isMainThread());
    this->driver.queues().runOnMain([this] { this->events.emplace_back("done"); });
  });
  this->driver.runMainUntil([this] { return !this->events.empty(); });
}

TYPED_TEST(ServicesContract, NothingQueuedBeginsOnceTheApplicationIsToTerminate) {
  this->driver.queues().runOnMain([this] { this->driver.application().terminate(); });
  this->driver.queues().runOnMain([this] { this->events.emplace_back("queued before"); });
  this->driver.runMain();
  this->driver.queues().runOnMain([this] { this->events.emplace_back("queued after"); });
  this->driver.queues().runInBackground([] { ADD_FAILURE() << "it was given after the request to terminate"; });
  this->driver.runMain();
  std::erase(this->events, willTerminate);
  EXPECT_THAT(this->events, IsEmpty());
}

TYPED_TEST(ServicesContract, TheClockShowsTheTimeSince1970) {
  const Platform::Date lastCentury{std::chrono::seconds(946'684'799)};
  const auto now = this->driver.clock().now();
  EXPECT_GT(now, lastCentury);
  EXPECT_GE(this->driver.clock().now(), now);
}

TYPED_TEST(ServicesContract, URLsReachTheHandlerOfTheirSchemeAsTheyAreAndInOrder) {
  for (const auto* url : {"contract:a", "contract://B/%5b?c#d", "contract:a"})
    this->driver.workspace().open(Platform::URL::parse(url).value());
  EXPECT_THAT(this->driver.received(), ElementsAre("contract:a", "contract://B/%5b?c#d", "contract:a"));
}

TYPED_TEST(ServicesContract, AnAlertIsThereUntilTheUserDismissesIt) {
  bool wasShown = false;
  this->driver.showToUser({.messageText = "alert"}, [&] { wasShown = this->driver.showsAlerts(); });
  EXPECT_TRUE(wasShown);
}

TYPED_TEST(ServicesContract, NoAlertIsShownWhileTheApplicationTerminates) {
  this->driver.application().terminate();
  this->driver.alerts().runModal({.messageText = "alert"});
  EXPECT_FALSE(this->driver.showsAlerts());
}

/// Notes that its window is about to close.
struct NotingDelegate : Platform::WindowDelegate {
  void windowWillClose(const Platform::Notification& notification) override { closed.push_back(notification.object); }
  std::vector<const void*> closed;
};

TYPED_TEST(ServicesContract, AWindowIsShownAndClosedAsOftenAsItIsAskedToBe) {
  NotingDelegate delegate;
  const auto window = this->driver.windows().makeWindow({.title = "Contract"});
  ASSERT_TRUE(window);
  EXPECT_EQ(window->delegate(), nullptr);
  window->setDelegate(&delegate);
  EXPECT_FALSE(this->driver.isOnScreen("Contract"));
  for (int time = 0; time < 2; ++time) {
    window->makeKeyAndOrderFront();
    this->driver.awaitOnScreen("Contract");
    window->close();
    this->driver.awaitNoWindow();
  }
  EXPECT_THAT(delegate.closed, ElementsAre(window.get(), window.get()));
}

TYPED_TEST(ServicesContract, AWindowsLevelReadsBack) {
  const auto window = this->driver.windows().makeWindow({.title = "Contract"});
  EXPECT_EQ(window->level(), Platform::normalWindowLevel);
  for (const int level : {4, 0, -1}) {
    window->setLevel(level);
    EXPECT_EQ(window->level(), level);
  }
}

TYPED_TEST(ServicesContract, TheBundleSaysWhereAndWhatItIs) {
  this->driver.describe("Version", "1.2");
  EXPECT_TRUE(this->driver.bundle().path().is_absolute());
  EXPECT_EQ(this->driver.bundle().identifier(), "com.example.Plugin");
  EXPECT_EQ(this->driver.bundle().information("Version"), "1.2");
  EXPECT_EQ(this->driver.bundle().information("version"), std::nullopt);
}

TYPED_TEST(ServicesContract, MessagesAreLoggedWholeAndInOrder) {
  const auto write = [this] {
    this->driver.log().write("error: Optional({\"%s\": %n})");
    this->driver.log().write("");
    this->driver.log().write("größer");
  };
  EXPECT_THAT(this->driver.logged(write), ElementsAre("error: Optional({\"%s\": %n})", "", "größer"));
}

TYPED_TEST(ServicesContract, ACheckForUpdatesIsBegun) {
  this->driver.updater().checkForUpdatesInBackground();
  EXPECT_EQ(this->driver.checksBegun(), 1);
}

}  // namespace
