#include "Fuzz/SoundSession.h"

#include <string>

#include "Fuzz/Target.h"

namespace Fuzz {

namespace {

// A byte that is not UTF-8 becomes U+FFFD.
constexpr std::size_t highestGrowth = 3;

void requireText(const std::string& text) {
  requireUTF8(text);
  require(!text.contains('\0'), "A text has no NUL.");
}

}  // namespace

void requireSound(const BrowserSessions::BrowserSession& session, std::size_t inputSize, SmallestSizes smallest) {
  std::size_t needed = 0;
  std::size_t textSize = 0;
  for (const auto& window : session) {
    require(window.activeTab < window.tabs.size(), "A window shows one of its tabs.");
    needed += smallest.window + window.tabs.size() * smallest.tab;
    for (const auto& [title, url] : window.tabs) {
      requireText(title);
      requireText(url);
      textSize += title.size() + url.size();
    }
  }
  require(needed <= inputSize, "The input has room for all windows and tabs.");
  require(textSize <= highestGrowth * inputSize, "The input has room for all texts.");
}

}  // namespace Fuzz
