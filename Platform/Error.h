#pragma once

#include <source_location>
#include <string>
#include <string_view>
#include <vector>

namespace Platform {

/// The user-information key of the description: what has failed.
inline constexpr const char* localizedDescriptionKey = "NSLocalizedDescription";
/// The user-information key of the failure reason: why it has failed.
inline constexpr const char* localizedFailureReasonKey = "NSLocalizedFailureReason";

/// The platform's error object (NSError).
class Error {
 public:
  /// One entry of the user information.
  struct UserInfoEntry {
    /// One of the user-information keys.
    std::string key;
    /// A text in the user's language.
    std::string value;

    /// Equal if both texts are.
    bool operator==(const UserInfoEntry&) const = default;
  };

  /// An error of `domain` with exactly two user-information entries, in this order: the description and the failure
  /// reason. Both are present even if they are empty.
  Error(std::string domain, int code, std::string localizedDescription, std::string localizedFailureReason);

  /// Who reports the error, in reverse-DNS form. A code has a meaning only within its domain.
  [[nodiscard]] const std::string& domain() const { return domain_; }
  /// The error's number within its domain.
  [[nodiscard]] int code() const { return code_; }
  /// The two entries, the description first.
  [[nodiscard]] const std::vector<UserInfoEntry>& userInfo() const { return userInfo_; }
  /// What has failed, as the user is told.
  [[nodiscard]] const std::string& localizedDescription() const { return userInfo_[0].value; }
  /// Why it has failed; empty if that is not known.
  [[nodiscard]] const std::string& localizedFailureReason() const { return userInfo_[1].value; }

 private:
  std::string domain_;
  int code_;
  std::vector<UserInfoEntry> userInfo_;
};

/// Stops the process because of a state that cannot happen: writes "Fatal error: <message>: file <name>, line <n>" as
/// one line to standard error and aborts.
[[noreturn]] void fatalError(std::string_view message, std::source_location where = std::source_location::current());

}  // namespace Platform
