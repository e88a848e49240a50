#pragma once

#include <string>
#include <vector>

namespace Platform {

/// The user-information keys that an error of this system carries.
inline constexpr const char* localizedDescriptionKey = "NSLocalizedDescription";
inline constexpr const char* localizedFailureReasonKey = "NSLocalizedFailureReason";

/// The platform's error object (NSError).
class Error {
 public:
  struct UserInfoEntry {
    std::string key;
    std::string value;

    bool operator==(const UserInfoEntry&) const = default;
  };

  /// An error of `domain` with exactly two user-information entries, in this order: the description and the failure
  /// reason. Both are present even where they are empty.
  Error(std::string domain, int code, std::string localizedDescription, std::string localizedFailureReason);

  [[nodiscard]] const std::string& domain() const { return domain_; }
  [[nodiscard]] int code() const { return code_; }
  [[nodiscard]] const std::vector<UserInfoEntry>& userInfo() const { return userInfo_; }
  [[nodiscard]] const std::string& localizedDescription() const { return userInfo_[0].value; }
  [[nodiscard]] const std::string& localizedFailureReason() const { return userInfo_[1].value; }

 private:
  std::string domain_;
  int code_;
  std::vector<UserInfoEntry> userInfo_;
};

}  // namespace Platform
