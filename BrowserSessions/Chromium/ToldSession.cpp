#include "BrowserSessions/Chromium/ToldSession.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "BrowserSessions/Companion/Companions.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace BrowserSessions {

namespace {

constexpr std::string_view normal = "normal";

// The window that was used last, then the others in the order in which they were opened.
void sort(std::vector<CompanionWindow>& windows) {
  if (!windows.empty())
    std::ranges::sort(windows.begin() + 1, windows.end(), {}, &CompanionWindow::number);
}

bool hasFocus(const CompanionAnswer& answer) {
  return std::ranges::any_of(answer.windows, &CompanionWindow::isFocused);
}

ChromiumWindow windowFrom(const CompanionWindow& window) {
  ChromiumWindow shown{.number = static_cast<std::int32_t>(window.number), .contents = browserWindow(window)};
  for (BrowserTab& tab : shown.contents.tabs)
    tab.title = DesktopSupport::shortened(tab.title);
  return shown;
}

}  // namespace

ToldSession toldSession(std::vector<CompanionAnswer> answers) {
  std::ranges::stable_partition(answers, hasFocus);
  ToldSession told{.windows = {}, .numbers = {}, .profiles = answers.size()};
  for (CompanionAnswer& answer : answers) {
    std::vector<CompanionWindow> windows;
    for (CompanionWindow& window : answer.windows) {
      const bool isNew = told.numbers.insert(static_cast<std::int32_t>(window.number)).second;
      if (isNew && window.type == normal && !window.tabs.empty())
        windows.push_back(std::move(window));
    }
    sort(windows);
    std::ranges::transform(windows, std::back_inserter(told.windows), windowFrom);
  }
  return told;
}

bool hasWindowOf(const ToldSession& told, const LoggedSession& logged) {
  const auto isTold = [&told](std::int32_t number) { return told.numbers.contains(number); };
  return std::ranges::any_of(logged.windows, isTold, &ChromiumWindow::number) ||
         std::ranges::any_of(logged.otherWindows, isTold);
}

}  // namespace BrowserSessions
