#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "AppleScript/Values/Value.h"

namespace AppleScript {

struct ListItems;
struct RecordFields;

/// Frees what a script made to hold itself (`set end of l to l`), which sharing alone never would. Told of every list
/// or record that was changed to hold another one, it empties those that are left when the run is over.
class CycleBreaker {
 public:
  CycleBreaker() = default;
  CycleBreaker(const CycleBreaker&) = delete;
  CycleBreaker& operator=(const CycleBreaker&) = delete;
  ~CycleBreaker();

  void noteStored(const List& container, const Value& value);
  void noteStored(const Record& container, const Value& value);
  /// Whether anything might hold itself.
  [[nodiscard]] bool isNeeded() const { return !lists_.empty() || !records_.empty(); }

 private:
  std::vector<std::weak_ptr<ListItems>> lists_;
  std::vector<std::weak_ptr<RecordFields>> records_;
};

}  // namespace AppleScript
