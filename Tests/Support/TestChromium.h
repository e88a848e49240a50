#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A real Chromium with an extension, with which a test does what a user would do and sees what is open. It is
/// controlled through a pipe.
class TestChromium {
 public:
  using json = nlohmann::json;
  using Options = std::vector<std::string>;
  /// Whether it also has the extensions that packages have installed.
  enum class InstalledExtensions { none, all };

  /// Starts it with its usual folder for user data, below XDG_CONFIG_HOME, and waits until it can be controlled.
  explicit TestChromium(const Options& options = {}, InstalledExtensions installed = InstalledExtensions::none);
  TestChromium(const TestChromium&) = delete;
  TestChromium& operator=(const TestChromium&) = delete;
  ~TestChromium();

  [[nodiscard]] static std::filesystem::path userData();

  /// Starts the program again, which passes its options on to the one that runs.
  static void ask(Options options);

  [[nodiscard]] pid_t pid() const { return pid_; }

  /// Runs JavaScript in the extension and returns its value. Waits for it if it is a promise. Throws if the script
  /// does.
  json run(const std::string& script);

  /// Whether there is a page with this address, in any kind of window.
  bool hasPage(const std::string& url);

  /// Waits until a condition holds. Checks it when a page or a worker is made, closed or gets another address, and
  /// after a second without such an event. Throws if it takes too long.
  void awaitUntil(const std::function<bool()>& condition);

  /// Waits until a condition holds that also depends on the browser's files. The condition must call `run`. Returns
  /// false if it takes too long.
  [[nodiscard]] bool waitUntilWritten(const std::function<bool()>& condition) const;

  /// Waits until there is a page with this address.
  void awaitPage(const std::string& url);
  /// Waits until it has this title too.
  void awaitPage(const std::string& url, const std::string& title);

  /// Runs JavaScript in the page with this address, as if the user had just clicked there.
  void runInPage(const std::string& url, const std::string& script);

  /// Opens the developer tools for the page with this address.
  void openDevTools(const std::string& url);

 private:
  void start(const Options& options, const std::string& extensions);
  void awaitWorker();
  json call(const std::string& method, const json& parameters = json::object(), const std::string& session = "");
  json target(const std::string& type, const std::function<bool(const std::string&)>& hasURL);
  json page(const std::string& url);
  [[nodiscard]] bool hasMessageWithin(std::chrono::milliseconds time) const;
  json nextMessage();

  TemporaryFolder extension_;
  int commands_ = -1;
  int answers_ = -1;
  std::optional<ChildProcess> process_;
  std::string received_;
  pid_t pid_ = 0;
  std::string workerSession_;
  int calls_ = 0;
  bool isChanged_ = false;
  /// Whether the extension has said that it is ready.
  bool isReady_ = false;
};

}  // namespace TestSupport
