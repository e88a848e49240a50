#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <vector>

namespace UpdateCheck {

/// A version as publishers write it, such as "1.10", "2.0b1" or "2.0-beta.2".
///
/// A run of digits is a number of any size and a run of letters is a word; other characters only separate them. So 1.10
/// comes after 1.9. Missing numbers at the end are zeros: 1.0 and 1.0.0 are equivalent. A word comes before every
/// number, which puts a pre-release before its release; words are in alphabetical order regardless of
/// case: 2.0b1, 2.0rc1, 2.0. The text after a '+' names a build of the version and is ignored. Every text is a version;
/// one without digits and letters is equivalent to 0.
class Version {
 public:
  explicit Version(std::string_view text);

  friend std::weak_ordering operator<=>(const Version& left, const Version& right);
  friend bool operator==(const Version& left, const Version& right) { return (left <=> right) == 0; }

 private:
  /// A number without leading zeros (zero is empty), or a word in lower case.
  struct Part {
    bool isNumber = true;
    std::string text = {};
  };

  static std::weak_ordering compare(const Part& left, const Part& right);
  void append(Part part);

  std::vector<Part> parts_;
};

}  // namespace UpdateCheck
