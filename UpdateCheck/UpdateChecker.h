#pragma once

#include <chrono>
#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

#include "Platform/Bundle.h"
#include "Platform/Log.h"
#include "UpdateCheck/Appcast.h"
#include "UpdateCheck/UpdateSettings.h"
#include "UpdateCheck/UpdateState.h"

namespace UpdateCheck {

/// One check for an update: from whether it is time for one to the user's answer. The user is told about each version
/// once. Nothing is downloaded but the feed and its signature, and nothing is installed.
class UpdateChecker {
 public:
  /// How long to wait for the user's answer.
  static constexpr std::chrono::seconds patience = std::chrono::hours(1);

  /// What the check needs from the system.
  struct Surroundings {
    /// The folder with the states of all plug-ins.
    std::filesystem::path stateFolder;
    std::chrono::sys_seconds now;
    /// The running kernel's release, as `uname -r` prints it.
    std::string kernelRelease;
    const Platform::Strings& strings;
    Platform::Log& log;
  };

  UpdateChecker(const UpdateSettings& settings, const Surroundings& surroundings)
      : settings_(settings), surroundings_(surroundings) {}

  /// Checks, and logs the outcome in one line. Logs nothing if it is not time yet, another check is under way, or the
  /// user already knows the newest version. Three things are noted in the state: the attempt before the feed is loaded,
  /// so that a broken feed is not loaded again at once; the check, from which the interval counts, when the feed has
  /// been loaded and verified; and the version when a notification service has taken the announcement.
  void run() const;

 private:
  using Result = std::expected<void, std::string>;

  [[nodiscard]] Result check() const;
  [[nodiscard]] Result checkWith(const UpdateStateFile& file) const;
  [[nodiscard]] Result compareWith(std::string_view feed, const UpdateStateFile& file, UpdateState state) const;
  [[nodiscard]] Result announce(const AppcastItem& item, const UpdateStateFile& file, UpdateState state) const;
  void log(std::string_view message) const;

  const UpdateSettings& settings_;
  const Surroundings& surroundings_;
};

}  // namespace UpdateCheck
