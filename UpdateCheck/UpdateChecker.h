#pragma once

#include <chrono>
#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

#include "DesktopSupport/Bus/SessionBus.h"
#include "Platform/Bundle.h"
#include "Platform/Log.h"
#include "UpdateCheck/AppcastItem.h"
#include "UpdateCheck/UpdateFeed.h"
#include "UpdateCheck/UpdateSettings.h"
#include "UpdateCheck/UpdateStateFile.h"

namespace UpdateCheck {

/// One check for an update, from the question whether it is time for it to the user's answer. The user is told of each
/// version once; nothing is ever installed.
class UpdateChecker {
 public:
  /// How long the user has for an answer.
  static constexpr std::chrono::seconds patience = std::chrono::hours(1);

  /// What the check is given by its surroundings.
  struct Surroundings {
    /// Where the states of all plug-ins lie.
    std::filesystem::path stateFolder;
    std::chrono::sys_seconds now;
    /// That of the running kernel, as uname has it.
    std::string kernelRelease;
    const Platform::Strings& strings;
    Platform::Log& log;
  };

  UpdateChecker(const UpdateSettings& settings, const Surroundings& surroundings);

  /// Checks, and logs one line about what came of it. Nothing is logged where it isn't time yet, another check is under
  /// way, or there is nothing that the user doesn't know. The attempt is noted before the feed is loaded, so that a
  /// feed that can't be loaded is not asked for again at once; the check, for which the interval counts, is noted when
  /// the feed is loaded, and a version when a notification service has taken it.
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
  UpdateFeed feed_;
};

}  // namespace UpdateCheck
