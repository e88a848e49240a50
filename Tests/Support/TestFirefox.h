#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Marionette.h"

namespace TestSupport {

/// The preference by which a Firefox has the extensions that packages have installed.
inline constexpr const char* enabledScopes = "extensions.enabledScopes";
inline constexpr int allScopes = 15;

/// A Firefox under remote control. It is set up to start fast, to ask nothing, and to reach only this machine.
class TestFirefox {
 public:
  /// Preferences by name, in addition to the usual ones.
  using Preferences = nlohmann::json;

  /// Starts it with a profile in the home folder that is in its list of profiles, as a user's is.
  static TestFirefox start(const Preferences& preferences = Preferences::object());
  /// Starts it with a profile in another folder.
  static TestFirefox startIn(const std::filesystem::path& profile,
                             const Preferences& preferences = Preferences::object());

  /// Runs the body of a function in its first window; see `Marionette`.
  nlohmann::json run(const std::string& body, const nlohmann::json& arguments = nlohmann::json::array()) {
    return control_->run(body, arguments);
  }

  /// Makes it quit, as its menu does, and waits for its end.
  void quit();
  /// Kills it, as if it crashed.
  void crash();
  /// Starts it again after its end.
  void startAgain();

  [[nodiscard]] const std::filesystem::path& profile() const { return profile_; }
  /// The folder of its saved session.
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
