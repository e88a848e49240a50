#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <sys/types.h>

#include "BrowserSessions/BrowserSession.h"
#include "BrowserSessions/Companion/CompanionAnswer.h"

namespace BrowserSessions {

/// How long the companions of a browser may take to answer.
inline constexpr std::chrono::seconds companionTime{3};

/// What the companions of a browser tell.
struct CompanionReading {
  /// One for each companion that answered.
  std::vector<CompanionAnswer> answers;
  /// A sentence for each one that could not be asked.
  std::vector<std::string> problems;
};

/// Asks the companions in this process of a browser which windows and tabs it has at this moment. Both lists are empty
/// if it has no companion, or there is no session bus. Starts nothing.
CompanionReading askCompanions(pid_t browser, std::chrono::milliseconds timeout = companionTime);

/// The tabs of a window, without the other things that are known of them.
BrowserWindow browserWindow(const CompanionWindow& window);

}  // namespace BrowserSessions
