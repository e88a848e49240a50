#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace UpdateCheck {

/// What is remembered from one check to the next.
struct UpdateState {
  /// How long a feed that could not be loaded is left alone.
  static constexpr std::chrono::seconds retryInterval = std::chrono::minutes(15);

  /// When the feed was last loaded.
  std::optional<std::chrono::sys_seconds> lastCheck;
  /// When the feed was last asked for, whether it could be loaded or not.
  std::optional<std::chrono::sys_seconds> lastAttempt = {};
  /// The version that the user was told of last.
  std::optional<std::string> announcedVersion;

  /// Reads what `text` wrote. Whatever can't be understood counts as not remembered.
  static UpdateState parse(const std::string& text);

  /// The state as a key file.
  [[nodiscard]] std::string text() const;

  /// Whether `interval` has gone by since the last check, and `retryInterval`, or `interval` if that is shorter, since
  /// the last attempt. A time that is missing has gone by; so has one in the future, which it is once the clock was set
  /// back.
  [[nodiscard]] bool isDue(std::chrono::sys_seconds now, std::chrono::seconds interval) const;

  /// Whether the user was told last of a version equivalent to this.
  [[nodiscard]] bool hasAnnounced(std::string_view version) const;
};

}  // namespace UpdateCheck
