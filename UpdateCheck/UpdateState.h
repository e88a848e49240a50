#pragma once

#include <chrono>
#include <expected>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "DesktopSupport/System/FileDescriptor.h"

namespace UpdateCheck {

/// What is remembered from one check to the next.
struct UpdateState {
  /// How long to wait after an attempt to load the feed has failed.
  static constexpr std::chrono::seconds retryInterval = std::chrono::minutes(15);

  /// When the feed was last loaded.
  std::optional<std::chrono::sys_seconds> lastCheck;
  /// When the feed was last asked for, whether it could be loaded or not.
  std::optional<std::chrono::sys_seconds> lastAttempt = {};
  /// The last version that the user was told about.
  std::optional<std::string> announcedVersion;

  /// Reads what `text` has written. Anything that is not understood counts as missing.
  static UpdateState parse(const std::string& text);

  /// The state as a key file.
  [[nodiscard]] std::string text() const;

  /// Whether `interval` has passed since the last check, and `retryInterval`, or `interval` if that is shorter, since
  /// the last attempt. A missing time has passed. So has one in the future: the clock was set back.
  [[nodiscard]] bool isDue(std::chrono::sys_seconds now, std::chrono::seconds interval) const;

  /// Whether this version is equivalent to the last one that the user was told about.
  [[nodiscard]] bool hasAnnounced(std::string_view version) const;
};

/// The file `<identifier>.updates` with a plug-in's state, locked against other checks of the plug-in while this object
/// exists. The lock is on a file beside it, `<identifier>.updates.lock`, as each write replaces the file itself.
class UpdateStateFile {
 public:
  /// Locks the plug-in's file in `folder`, which is made if needed. Null if another check has locked it; does not wait.
  /// Fails with a clause for the log if the folder cannot be written to.
  static std::expected<std::optional<UpdateStateFile>, std::string> lock(const std::filesystem::path& folder,
                                                                         const std::string& identifier);

  /// The state in the file. It is empty if the file is missing, damaged or longer than 64 KiB.
  [[nodiscard]] UpdateState read() const;

  /// Replaces the file as a whole. Fails with a clause for the log.
  [[nodiscard]] std::expected<void, std::string> write(const UpdateState& state) const;

 private:
  UpdateStateFile(std::filesystem::path path, std::unique_ptr<DesktopSupport::FileDescriptor> lock);

  std::filesystem::path path_;
  std::unique_ptr<DesktopSupport::FileDescriptor> lock_;
};

}  // namespace UpdateCheck
