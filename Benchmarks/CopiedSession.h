#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Benchmarks/SessionRecord.h"

namespace Benchmarks {

/// What a real Chromium has open, of which logs of any number of tabs are made: windows and tabs are copied under
/// numbers of their own, with "#1", "#2", … behind the addresses.
class CopiedSession {
 public:
  /// The titles of pages by their addresses.
  using Titles = std::map<std::string, std::string>;

  /// From the browser's session log, which must be one with a tab; ends the program if it is none.
  explicit CopiedSession(std::string_view log);

  /// How many copies of the session have `tabs` tabs together, the last one perhaps in part; at least one.
  [[nodiscard]] std::size_t copiesFor(std::size_t tabs) const;

  /// A log of so many tabs. It is like one of the browser's own: what was open when it was begun, with all titles, then
  /// the mark, then the latest changes, which have no titles yet; those are the last copy's, if there are any.
  [[nodiscard]] std::string log(std::size_t tabs, const Titles& titles) const;

 private:
  std::vector<SessionRecord> records_;
  /// The index of the first record behind the mark; past the last one if the log ends with the mark.
  std::ptrdiff_t latest_ = 0;
  /// In the order in which they were opened.
  std::vector<std::int32_t> tabs_;
  /// More than the distance between any two numbers of windows and tabs.
  std::int32_t span_ = 0;
};

}  // namespace Benchmarks
