#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Marionette.h"

namespace TestSupport {

/// A Firefox under remote control. It is told to be quick and silent, and reaches this machine only.
class TestFirefox {
 public:
  /// Preferences by name, to be set besides the usual ones.
  using Preferences = nlohmann::json;

  /// Starts it with a profile in the home folder that its list of profiles names, as a user's is.
  static TestFirefox start(const Preferences& preferences = Preferences::object());
  /// Starts it with a profile in a folder elsewhere.
  static TestFirefox startIn(const std::filesystem::path& profile,
                             const Preferences& preferences = Preferences::object());

  /// Runs the body of a function in its first window; see `Marionette`.
  nlohmann::json run(const std::string& body, const nlohmann::json& arguments = nlohmann::json::array()) {
    return control_->run(body, arguments);
  }

  /// Has it quit as its menu does; returns once it has ended.
  void quit();
  /// Ends it as a crash would.
  void crash();
  /// Starts it again, once it has ended.
  void startAgain();

  [[nodiscard]] const std::filesystem::path& profile() const { return profile_; }
  /// Where it keeps what it has open.
  [[nodiscard]] std::filesystem::path sessionFolder() const { return profile_ / "sessionstore-backups"; }
  [[nodiscard]] pid_t pid() const { return process_->pid(); }

 private:
  TestFirefox(std::vector<std::string> options, std::filesystem::path profile, const Preferences& preferences);

  std::vector<std::string> options_;
  std::filesystem::path profile_;
  std::optional<ChildProcess> process_;
  std::optional<Marionette> control_;
};

}  // namespace TestSupport
