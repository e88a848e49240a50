#pragma once

#include <ostream>

#include "BrowserSessions/BrowserSession.h"

namespace BrowserSessions {

/// How failed expectations show windows and tabs.
inline void PrintTo(const BrowserTab& tab, std::ostream* stream) {
  *stream << '"' << tab.title << "\" <" << tab.url << '>';
}

inline void PrintTo(const BrowserWindow& window, std::ostream* stream) {
  *stream << "a window at tab " << window.activeTab << " of";
  for (const BrowserTab& tab : window.tabs) {
    *stream << ' ';
    PrintTo(tab, stream);
  }
}

}  // namespace BrowserSessions
