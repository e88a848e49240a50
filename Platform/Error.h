#pragma once

#include <string>
#include <vector>

namespace Platform {

/// The user-information key of what has failed.
inline constexpr const char* localizedDescriptionKey = "NSLocalizedDescription";
/// The user-information key of why it has failed.
inline constexpr const char* localizedFailureReasonKey = "NSLocalizedFailureReason";

/// The platform's error object (NSError).
class Error {
 public:
  /// A line of the user information.
  struct UserInfoEntry {
    /// One of the user-information keys.
    std::string key;
    /// A text in the user's language.
    std::string value;

    /// Equal where both texts are, to the letter.
    bool operator==(const UserInfoEntry&) const = default;
  };

  /// An error of `domain` with exactly two user-information entries, in this order: the description and the failure
  /// reason. Both are present even where they are empty.
  Error(std::string domain, int code, std::string localizedDescription, std::string localizedFailureReason);

  /// Who reports the error, in reverse-DNS form; codes mean something within their domain only.
  [[nodiscard]] const std::string& domain() const { return domain_; }
  /// Which of its domain's errors it is.
  [[nodiscard]] int code() const { return code_; }
  /// The two entries, the description first.
  [[nodiscard]] const std::vector<UserInfoEntry>& userInfo() const { return userInfo_; }
  /// What has failed, as the user is told.
  [[nodiscard]] const std::string& localizedDescription() const { return userInfo_[0].value; }
  /// Why it has failed; empty where that is not known.
  [[nodiscard]] const std::string& localizedFailureReason() const { return userInfo_[1].value; }

 private:
  std::string domain_;
  int code_;
  std::vector<UserInfoEntry> userInfo_;
};

}  // namespace Platform
