#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Benchmarks/SessionRecord.h"

namespace Benchmarks {

/// The session of a real Chromium, from which logs with any number of tabs can be made: copies of its windows and tabs
/// have numbers of their own and addresses that end with "#1", "#2" and so on.
class CopiedSession {
 public:
  /// The titles of pages by their addresses.
  using Titles = std::map<std::string, std::string>;

  /// Reads the browser's session log. Ends the program if it is not one or has no tab.
  explicit CopiedSession(std::string_view log);

  /// How many copies of the session are needed for `tabs` tabs, at least one. The last may be used in part.
  [[nodiscard]] std::size_t copiesFor(std::size_t tabs) const;

  /// A log with `tabs` tabs, in the order of the browser's own: the state when the log was begun, with all titles; the
  /// mark; and the latest changes, which have no titles yet. The changes, if any, are those of the last copy.
  [[nodiscard]] std::string log(std::size_t tabs, const Titles& titles) const;

 private:
  std::vector<SessionRecord> records_;
  /// The index of the first record after the mark, or the number of records if there is none.
  std::ptrdiff_t latest_ = 0;
  /// In the order in which they were opened.
  std::vector<std::int32_t> tabs_;
  /// More than the difference between any two numbers of windows and tabs.
  std::int32_t span_ = 0;
};

}  // namespace Benchmarks
