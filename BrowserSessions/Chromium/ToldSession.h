#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "BrowserSessions/Chromium/LoggedSession.h"
#include "BrowserSessions/Companion/CompanionAnswer.h"

namespace BrowserSessions {

/// What the companions in a browser of the Chromium family tell.
struct ToldSession {
  /// The normal windows that have tabs, each once. Of each profile first the window that was used last, then the others
  /// in the order in which they were opened. The profile whose window has the keyboard focus comes first.
  std::vector<ChromiumWindow> windows;
  /// The numbers of all windows, pop-ups included.
  std::set<std::int32_t> numbers;
  /// How many profiles have told.
  std::size_t profiles = 0;
};

ToldSession toldSession(std::vector<CompanionAnswer> answers);

/// Whether a companion has told of one of the windows in the log of a profile. Then it runs in that profile.
bool hasWindowOf(const ToldSession& told, const LoggedSession& logged);

}  // namespace BrowserSessions
