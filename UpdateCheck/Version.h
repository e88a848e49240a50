#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <vector>

namespace UpdateCheck {

/// A version as publishers write it, such as "1.10", "2.0b1" or "2.0-beta.2".
///
/// Runs of digits are numbers of any size, runs of letters are words, and whatever stands between them only separates:
/// 1.10 comes after 1.9. Where versions differ in length, the shorter one goes on with zeros, so 1.0 and 1.0.0 are
/// equivalent. A word comes before every number, which puts a pre-release before its release, and words are in
/// alphabetical order whatever their case: 2.0b1, 2.0rc1, 2.0. What stands behind a '+' tells builds of one version
/// apart and doesn't count. Every text is a version; one without digits and letters is equivalent to 0.
class Version {
 public:
  explicit Version(std::string_view text);

  friend std::weak_ordering operator<=>(const Version& left, const Version& right);
  friend bool operator==(const Version& left, const Version& right) { return (left <=> right) == 0; }

 private:
  /// A number without its leading zeros, so that zero is empty, or a word in lower case.
  struct Part {
    bool isNumber = true;
    std::string text = {};
  };

  static std::weak_ordering compare(const Part& left, const Part& right);
  void append(Part part);

  std::vector<Part> parts_;
};

}  // namespace UpdateCheck
