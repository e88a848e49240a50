#include "BrowserSessions/Chromium/PageNames.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::isUTF8;
using DesktopSupport::shortened;

// The character of the escape (%XX) at the start of the text.
std::optional<char> escapedCharacter(std::string_view text) {
  constexpr int hexadecimal = 16;
  if (text.size() < 3 || text[0] != '%' || g_ascii_xdigit_value(text[1]) < 0 || g_ascii_xdigit_value(text[2]) < 0)
    return std::nullopt;
  return static_cast<char>(hexadecimal * g_ascii_xdigit_value(text[1]) + g_ascii_xdigit_value(text[2]));
}

// Whether an address is readable and means the same with this character in place of its escape.
bool isReadable(char character) {
  constexpr std::string_view special = "#$%&+,/:;=?@\\";
  return g_ascii_iscntrl(character) == FALSE && !special.contains(character);
}

std::string unescaped(std::string_view address) {
  std::string text;
  for (std::size_t position = 0; position < address.size(); ++position) {
    const auto character = escapedCharacter(address.substr(position));
    const bool isTaken = character && isReadable(*character);
    text += isTaken ? *character : address[position];
    position += isTaken ? 2 : 0;
  }
  return isUTF8(text) ? text : std::string(address);
}

// A host with its port as people read it, without a user name and a password.
std::string readableHost(std::string_view authority) {
  const std::string_view withPort = authority.substr(authority.rfind('@') + 1);
  const std::string host(withPort.substr(0, withPort.rfind(':')));
  // GLib reads past the end of a text that is not UTF-8, and may itself return such a text.
  const bool isEncoded = host.contains("xn--") && isUTF8(host);
  const DesktopSupport::CharsHandle name(isEncoded ? g_hostname_to_unicode(host.c_str()) : nullptr);
  return (name && isUTF8(name.get()) ? name.get() : host) + std::string(withPort.substr(host.size()));
}

// The name of a file, with the query and the fragment of the address.
std::string_view fileName(std::string_view url) {
  return url.substr(url.substr(0, url.find_first_of("?#")).rfind('/') + 1);
}

// The tabs that the windows show, in the order in which the windows were opened; empty if one of them is not known.
std::vector<BrowserTab*> shownTabs(std::vector<ChromiumWindow>& windows) {
  std::vector<ChromiumWindow*> opened;
  for (ChromiumWindow& window : windows)
    opened.push_back(&window);
  std::ranges::sort(opened, {}, &ChromiumWindow::number);
  std::vector<BrowserTab*> shown;
  for (ChromiumWindow* window : opened) {
    if (!window->hasShownTab || window->contents.tabs.empty())
      return {};
    shown.push_back(&window->contents.tabs[window->contents.activeTab]);
  }
  return shown;
}

std::unordered_map<std::string, int> addressCounts(const std::vector<ChromiumWindow>& windows) {
  std::unordered_map<std::string, int> counts;
  for (const ChromiumWindow& window : windows)
    for (const BrowserTab& tab : window.contents.tabs)
      ++counts[tab.url];
  return counts;
}

}  // namespace

std::string chromiumPageName(std::string_view url) {
  constexpr std::string_view source = "view-source:";
  constexpr std::string_view http = "http://";
  constexpr std::string_view schemeEnd = "://";
  const std::string_view prefix = url.starts_with(source) ? source : "";
  const std::string_view page = url.substr(prefix.size());
  if (page.starts_with("file:"))
    return unescaped(fileName(page));
  const auto scheme = page.find(schemeEnd);
  if (scheme == std::string_view::npos)
    return unescaped(url);
  const std::string_view start = page.substr(0, scheme + schemeEnd.size());
  const std::string_view authority = page.substr(start.size(), page.find_first_of("/?#", start.size()) - start.size());
  const std::string_view rest = page.substr(start.size() + authority.size());
  return std::string(prefix) + std::string(start == http ? "" : start) + readableHost(authority) +
         (rest == "/" ? "" : unescaped(rest));
}

void addWindowTitles(std::vector<ChromiumWindow>& windows, const std::vector<std::string>& titles) {
  const auto shown = shownTabs(windows);
  if (shown.size() != titles.size())
    return;
  const auto counts = addressCounts(windows);
  const auto keepsTitle = [&](const BrowserTab& tab) { return !tab.title.empty() && counts.at(tab.url) == 1; };
  for (std::size_t index = 0; index < shown.size(); ++index)
    if (keepsTitle(*shown[index]) && shown[index]->title != titles[index])
      return;
  for (std::size_t index = 0; index < shown.size(); ++index)
    shown[index]->title = titles[index];
}

void addChromiumNames(std::vector<ChromiumWindow>& windows) {
  for (ChromiumWindow& window : windows)
    for (BrowserTab& tab : window.contents.tabs)
      if (tab.title.empty())
        tab.title = shortened(chromiumPageName(tab.url));
}

}  // namespace BrowserSessions
