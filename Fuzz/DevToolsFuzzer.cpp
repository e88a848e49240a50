#include <algorithm>
#include <string>

#include "BrimlaceTextView/Lines.h"
#include "BrowserSessions/Chromium/DevTools/DevToolsSession.h"
#include "BrowserSessions/Chromium/DevTools/LocalConnection.h"
#include "BrowserSessions/Chromium/LoggedSession.h"
#include "Fuzz/SoundSession.h"
#include "Fuzz/Target.h"
#include "Fuzz/ToldWebSocket.h"
#include "Tests/BrowserSessions/FakeWebSocket.h"

namespace {

using BrowserSessions::FakeWebSocket;
using Fuzz::require;

// The least that is received for a tab: its place and an answer with its window.
constexpr std::string_view place = R"({"embedderData":{"tabStripIndex":0}})";
constexpr std::string_view window = R"({"id":0,"result":{"windowId":0}})";

void readAnswer(std::string_view answer) {
  constexpr std::size_t maximumSize = 1024;
  Fuzz::ToldConnection server(answer);
  auto connection = server.takeClient();
  const auto content = BrowserSessions::readHTTPContent(connection, maximumSize);
  if (!content)
    return;
  require(content->size() <= maximumSize, "An answer has a bounded length.");
  const auto head = answer.find("\r\n\r\n");
  require(head != std::string_view::npos && answer.substr(head + 4).starts_with(*content),
          "The content comes after the head.");
}

void requireSoundTabs(const BrowserSessions::DevToolsSession& session, std::size_t inputSize) {
  require(session.tabs.size() <= inputSize / (place.size() + window.size()), "Each tab was received with its window.");
  Fuzz::requireUTF8(session.mainProfile);
  for (const auto& tab : session.tabs)
    Fuzz::requireUTF8(tab.profile);
  Fuzz::requireSound(BrowserSessions::joined(session, {}), inputSize, {.tab = place.size(), .window = window.size()});
}

void readMessages(std::string_view input) {
  std::string told = Fuzz::webSocketHead();
  for (const std::string_view message : BrimlaceTextView::lines(input))
    told += FakeWebSocket::frame(FakeWebSocket::text, message);
  Fuzz::ToldConnection connection(told);
  auto devTools = Fuzz::openToldWebSocket(connection);
  const auto session = devTools ? BrowserSessions::devToolsSession(*devTools) : std::nullopt;
  require(devTools.has_value(), "The WebSocket is opened.");
  if (session)
    requireSoundTabs(*session, input.size());
}

}  // namespace

// The input is what a browser's DevTools answer: an HTTP response if it begins like one, otherwise a message over the
// WebSocket on each line.
void Fuzz::run(std::string_view input) {
  if (input.starts_with("HTTP/"))
    readAnswer(input);
  else
    readMessages(input);
}
