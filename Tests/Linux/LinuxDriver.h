#pragma once

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "Linux/Application.h"
#include "Linux/Bundle.h"
#include "Linux/Queues.h"
#include "Linux/Services.h"
#include "Linux/Updater.h"
#include "Linux/Windows.h"
#include "Linux/Workspace.h"
#include "Tests/Support/FakeService.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestDesktop.h"

namespace ServicesContract {

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

  /// The URLs that it received. Complete after every URL was handed over.
  [[nodiscard]] std::vector<std::string> received() const { return received_; }

 private:
  static constexpr const char* name = "com.example.Handler";

  std::vector<std::string> received_;
  TestSupport::FakeService service_{name, "/com/example/Handler",
                                    "<node><interface name='org.freedesktop.Application'><method name='Open'>"
                                    "<arg type='as'/><arg type='a{sv}'/></method></interface></node>"};
};

/// The real desktop, with operations that let a test observe it.
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

  void deliver(std::string launchURL) {
    launches_.add({.url = std::move(launchURL)});
    application_.deliver(launches_);
  }
  std::vector<std::string> undelivered() {
    std::vector<std::string> urls;
    for (Linux::Launch& launch : launches_.takeAll())
      urls.push_back(std::move(*launch.url));
    return urls;
  }

  void launch(const std::vector<std::string>& launchURLs) {
    for (const std::string& url : launchURLs)
      deliver(url);
    application_.run();
    application_.postWillTerminate();
    application_.postWillTerminate();
  }

  // The real engine is told no answers; it runs the source.
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
    awaitNoWindow();
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
    bundle_ = Linux::Bundle(folder_.path());
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
  /// Runs the main context meanwhile, as the toolkit needs it to change the screen.
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
  static Linux::Windows& openWindows() {
    static const Linux::Bundle bundle(std::filesystem::path(DESKLOOM_WINDOWS_PROGRAM).parent_path());
    static Linux::Log log;
    static Linux::Windows opened(bundle, log);
    return opened;
  }

  TestSupport::TemporaryFolder folder_;
  TestSupport::TestDesktop desktop_;
  SchemeHandler handler_;
  std::atomic<bool> over_ = false;
  Platform::AppleEventManager appleEvents_;
  Platform::NotificationCenter notifications_;
  Linux::Application application_{appleEvents_, notifications_};
  Linux::LaunchQueue launches_;
  Linux::Log log_;
  Linux::Bundle bundle_{
      folder_.write("Info.ini", "[Bundle]\nIdentifier=com.example.Plugin\n[Updates]\nFeedURL=file:///feed\n")
          .parent_path()};
  Linux::Strings strings_{bundle_};
  Linux::ScriptEngine scripts_;
  Linux::Workspace workspace_{log_};
  Linux::Windows& windows_ = openWindows();
  Linux::Alerts alerts_{windows_, application_, strings_, log_};
  Linux::Updater updater_{bundle_, log_};
  Linux::Clock clock_;
  Linux::Queues queues_{application_};
};

}  // namespace ServicesContract
