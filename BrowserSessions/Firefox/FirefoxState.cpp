#include "BrowserSessions/Firefox/FirefoxState.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "BrowserSessions/BrowserFiles.h"
#include "BrowserSessions/Firefox/FirefoxStateReader.h"
#include "BrowserSessions/JSONText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::isUTF8;
using DesktopSupport::validUTF8;

// The texts are made valid once more, since the escape \u0000 yields a NUL.
BrowserTab shownPage(const FirefoxTab& tab) {
  if (tab.history.empty())
    return {.title = "", .url = tab.isLoadingTypedAddress ? validUTF8(tab.typedAddress) : ""};
  const std::int64_t last = std::ssize(tab.history);
  const std::int64_t number = tab.index == 0 ? last : std::clamp<std::int64_t>(tab.index, 1, last);
  const BrowserTab& page = tab.history[static_cast<std::size_t>(number - 1)];
  return {.title = validUTF8(page.title), .url = withoutReadingView(validUTF8(page.url))};
}

BrowserWindow shownTabs(const FirefoxWindow& window) {
  std::vector<std::optional<BrowserTab>> tabs;
  for (const FirefoxTab& tab : window.tabs)
    tabs.push_back(tab.isHidden || tab.isPrivate ? std::nullopt : std::optional(shownPage(tab)));
  // It counts from 1. Any number that is not a tab's means that none is selected.
  return listedTabs(std::move(tabs), static_cast<std::size_t>(window.selected) - 1);
}

BrowserSession shownWindows(const FirefoxStateReader& state) {
  std::multimap<std::int64_t, BrowserWindow> placed;
  std::int64_t number = 0;
  for (const FirefoxWindow& window : state.windows()) {
    const bool isSelected = ++number == state.selectedWindow();
    const std::int64_t afterAll = std::numeric_limits<std::int64_t>::max();
    BrowserWindow shown = window.isPrivate ? BrowserWindow() : shownTabs(window);
    if (!shown.tabs.empty())
      placed.emplace(window.place.value_or(isSelected ? 0 : afterAll), std::move(shown));
  }
  BrowserSession session;
  for (auto& [place, window] : placed)
    session.push_back(std::move(window));
  return session;
}

}  // namespace

std::expected<BrowserSession, std::string> firefoxState(std::string json) {
  // An address that is cut here is still too long to be listed, even if it consists of escapes.
  cutLongTokens(json, (longestAddress + 1) * escapeLength);
  if (!isUTF8(json))
    json = validUTF8(json);
  replaceLoneSurrogates(json);
  FirefoxStateReader state;
  if (!nlohmann::json::sax_parse(json, &state) || !state.isSession())
    return std::unexpected("It is not the JSON of a session.");
  if (!state.isKnownVersion())
    return std::unexpected("It has an unknown version.");
  return shownWindows(state);
}

std::string withoutReadingView(std::string address) {
  constexpr std::string_view readingView = "about:reader?url=";
  if (!address.starts_with(readingView))
    return address;
  const std::string page = address.substr(readingView.size(), address.find('&') - readingView.size());
  const DesktopSupport::CharsHandle unescaped(g_uri_unescape_string(page.c_str(), nullptr));
  return unescaped ? validUTF8(unescaped.get()) : address;
}

}  // namespace BrowserSessions
