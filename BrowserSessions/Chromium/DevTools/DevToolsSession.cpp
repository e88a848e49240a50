#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "BrowserSessions/BrowserFiles.h"
#include "BrowserSessions/Chromium/DevTools/DevToolsPort.h"
#include "BrowserSessions/Chromium/DevTools/JSONFields.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::shortened;
using DesktopSupport::validUTF8;
using nlohmann::json;
using namespace std::chrono_literals;

// The time for connecting and listing the tabs, and then for asking for their windows.
constexpr auto patience = 500ms;
constexpr auto patienceForWindows = 2s;

// The number of calls that are sent before their answers are read.
constexpr std::size_t maximumBatch = 256;

WebSocket::Deadline in(std::chrono::milliseconds time) {
  return std::chrono::steady_clock::now() + time;
}

json call(const char* method, json parameters) {
  return {{"method", method}, {"params", std::move(parameters)}};
}

bool send(WebSocket& devTools, std::span<json> calls) {
  for (std::size_t number = 0; number < calls.size(); ++number) {
    calls[number]["id"] = number;
    if (!devTools.send(calls[number].dump()))
      return false;
  }
  return true;
}

// The answers to the calls, in their order. Each has a "result" or an "error".
std::optional<std::vector<json>> answers(WebSocket& devTools, std::span<json> calls) {
  std::vector<json> answers(calls.size());
  if (!send(devTools, calls))
    return std::nullopt;
  for (std::size_t missing = calls.size(); missing > 0;) {
    const auto message = devTools.receive();
    if (!message)
      return std::nullopt;
    json answer = json::parse(*message, nullptr, /*allow_exceptions=*/false);
    const auto number = integerField(answer, "id");
    if (!number || *number < 0 || std::cmp_greater_equal(*number, answers.size()))
      continue;
    json& place = answers[static_cast<std::size_t>(*number)];
    missing -= place.is_null() ? 1 : 0;
    place = std::move(answer);
  }
  return answers;
}

// The tab, without its window; `nullopt` if it is not in a tab strip.
std::optional<DevToolsTab> tab(const json& target) {
  const json& place = field(target, "embedderData");
  const auto index = integerField(place, "tabStripIndex");
  if (!index)
    return std::nullopt;
  return DevToolsTab{.index = *index,
                     .isShown = field(place, "tabActive") == true,
                     .profile = textField(target, "browserContextId"),
                     .page = {validUTF8(shortened(textField(target, "title"))), validUTF8(textField(target, "url"))}};
}

// The browser's tabs, and for each the call that asks for its window.
struct Tabs {
  DevToolsSession session;
  std::vector<json> windowCalls;
};

std::optional<Tabs> tabs(WebSocket& devTools) {
  std::vector<json> calls = {call("Target.getTargets", {{"filter", {{{"type", "tab"}}}}}),
                             call("Target.getBrowserContexts", json::object())};
  const auto told = answers(devTools, calls);
  if (!told)
    return std::nullopt;
  const json& targets = field(field(told->front(), "result"), "targetInfos");
  Tabs tabs;
  tabs.session.mainProfile = textField(field(told->back(), "result"), "defaultBrowserContextId");
  for (const json& target : targets)
    if (auto found = tab(target)) {
      tabs.session.tabs.push_back(std::move(*found));
      tabs.windowCalls.push_back(call("Browser.getWindowForTarget", {{"targetId", textField(target, "targetId")}}));
    }
  const bool isUnderstood = targets.is_array() && (targets.empty() || !tabs.session.tabs.empty());
  return isUnderstood ? std::optional(std::move(tabs)) : std::nullopt;
}

// The tabs with their windows. Tabs that were closed meanwhile have none and are left out.
std::optional<DevToolsSession> inTheirWindows(WebSocket& devTools, Tabs tabs) {
  DevToolsSession session = {.tabs = {}, .mainProfile = std::move(tabs.session.mainProfile)};
  for (std::size_t begin = 0; begin < tabs.windowCalls.size(); begin += maximumBatch) {
    const std::size_t count = std::min(maximumBatch, tabs.windowCalls.size() - begin);
    const auto told = answers(devTools, std::span(tabs.windowCalls).subspan(begin, count));
    if (!told)
      return std::nullopt;
    for (std::size_t position = 0; position < count; ++position)
      if (const auto window = integerField(field((*told)[position], "result"), "windowId")) {
        session.tabs.push_back(std::move(tabs.session.tabs[begin + position]));
        session.tabs.back().window = *window;
      }
  }
  return session;
}

}  // namespace

std::expected<std::optional<DevToolsSession>, std::string> devToolsSession(const std::filesystem::path& userData,
                                                                           pid_t process) {
  const auto port = devToolsPort(userData);
  if (!port)
    return std::nullopt;
  auto connected = connectDevTools(*port, process, in(patience));
  if (!connected)
    return std::unexpected(std::move(connected.error()));
  std::optional<WebSocket>& devTools = *connected;
  return devTools ? devToolsSession(*devTools) : std::nullopt;
}

std::optional<DevToolsSession> devToolsSession(WebSocket& devTools) {
  auto open = tabs(devTools);
  if (!open)
    return std::nullopt;
  devTools.setDeadline(in(patienceForWindows));
  return inTheirWindows(devTools, std::move(*open));
}

}  // namespace BrowserSessions
