#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/TemporaryFolder.h"

namespace TestSupport {

/// A real Chromium with an extension in it, through which a test does what a user would do, and is told what is open.
/// It is driven through a pipe, which nobody else can use.
class TestChromium {
 public:
  using json = nlohmann::json;
  using Options = std::vector<std::string>;

  /// Starts it with the user data folder that a user's has, below XDG_CONFIG_HOME, and waits until it can be driven.
  explicit TestChromium(const Options& options = {});
  TestChromium(const TestChromium&) = delete;
  TestChromium& operator=(const TestChromium&) = delete;
  ~TestChromium();

  [[nodiscard]] static std::filesystem::path userData();

  /// Has it do what another start of the program asks of the one that runs.
  static void ask(Options options);

  /// Runs JavaScript in the extension, waits for the promise that it may yield, and yields the value. Throws where the
  /// script does.
  json run(const std::string& script);

  /// Whether there is a page at this address, in whichever kind of window.
  bool hasPage(const std::string& url);

  /// Waits until a condition holds; it is looked at again whenever a page or a worker comes, goes or has another
  /// address, and after a second without any of that. Throws if the condition does not hold in time.
  void awaitUntil(const std::function<bool()>& condition);

  /// The same for a condition that depends on what the browser writes, too. It has to call `run`. False where that
  /// takes so long that something must be broken.
  [[nodiscard]] bool waitUntilWritten(const std::function<bool()>& condition) const;

  /// Waits until there is a page at this address.
  void awaitPage(const std::string& url);

  /// Runs JavaScript in the page at this address, as if the user had just clicked there.
  void runInPage(const std::string& url, const std::string& script);

  /// Opens the developer tools for the page at this address.
  void openDevTools(const std::string& url);

 private:
  void start(const Options& options);
  void awaitWorker();
  json call(const std::string& method, const json& parameters = json::object(), const std::string& session = "");
  json target(const std::string& type, const std::string& url);
  [[nodiscard]] bool hasMessageWithin(std::chrono::milliseconds time) const;
  json nextMessage();

  TemporaryFolder extension_;
  int commands_ = -1;
  int answers_ = -1;
  std::optional<ChildProcess> process_;
  std::string received_;
  std::string workerSession_;
  int calls_ = 0;
  bool isChanged_ = false;
  /// Whether the extension has said that it is ready.
  bool isReady_ = false;
};

}  // namespace TestSupport
