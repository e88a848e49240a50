#include <cstdint>
#include <set>

#include "BrowserSessions/Chromium/SessionLog.h"
#include "BrowserSessions/Chromium/SessionReplay.h"
#include "Fuzz/SoundSession.h"
#include "Fuzz/Target.h"

namespace {

// Each record begins with a size and an id. A tab has a record that puts it into a window and one for a page; a window
// has one with its type.
constexpr std::size_t recordHead = 3;
constexpr std::size_t pairSize = recordHead + 8;
constexpr std::size_t pageSize = recordHead + 20;
constexpr std::uint8_t marker = 255;

void requireDifferentNumbers(const BrowserSessions::LoggedSession& session) {
  std::set<std::int32_t> numbers(session.otherWindows.begin(), session.otherWindows.end());
  for (const auto& window : session.windows)
    numbers.insert(window.number);
  Fuzz::require(numbers.size() == session.windows.size() + session.otherWindows.size(),
                "No two windows have one number.");
}

}  // namespace

// The input is a Chromium session log.
void Fuzz::run(std::string_view input) {
  const auto log = BrowserSessions::SessionLog::open(input);
  if (!log) {
    require(!log.error().empty(), "A failure has a reason.");
    return;
  }
  const auto session = BrowserSessions::chromiumSession(*log);
  requireDifferentNumbers(session);
  requireSound(BrowserSessions::browserSession(session), input.size(),
               {.tab = pairSize + pageSize, .window = pairSize});

  auto rest = *log;
  bool hasMarker = false;
  std::size_t recordBytes = 0;
  while (const auto command = rest.next()) {
    hasMarker = hasMarker || command->id == marker;
    recordBytes += recordHead + command->payload.size();
  }
  require(recordBytes <= input.size(), "The records do not overlap.");
  require(hasMarker == log->isComplete(), "A log is complete if it has the mark.");
}
