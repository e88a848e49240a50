#include "BrowserSessions/GNOMEWeb/GNOMEWebSession.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <set>
#include <system_error>
#include <utility>

#include "BrowserSessions/BrowserFiles.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"

namespace BrowserSessions {

namespace {

using DesktopSupport::parseNumber;
using DesktopSupport::validUTF8;

constexpr std::size_t maximumSize = 32 << 20;
constexpr std::size_t maximumDepth = 16;
// Of windows and tabs together.
constexpr std::size_t maximumCount = 100'000;

// The state of a parse.
struct State {
  BrowserSession session;
  std::size_t depth = 0;
  std::size_t count = 0;
  bool isSession = false;
  bool isInWindow = false;
};

std::string attribute(const char** names, const char** values, std::string_view name) {
  for (; *names != nullptr; ++names, ++values)
    if (*names == name)
      return *values;
  return "";
}

void fail(GError** error) {
  g_set_error_literal(error, G_MARKUP_ERROR, G_MARKUP_ERROR_INVALID_CONTENT, "");
}

void startElement(GMarkupParseContext* /*parser*/, const char* element, const char** names, const char** values,
                  gpointer data, GError** error) {
  auto& state = *static_cast<State*>(data);
  const std::string_view name = element;
  const std::size_t depth = state.depth++;
  if (depth == 0)
    state.isSession = name == "session";
  if (!state.isSession || depth == maximumDepth || state.count == maximumCount)
    return fail(error);
  if (depth == 1)
    state.isInWindow = name == "window";
  if (depth == 1 && state.isInWindow) {
    state.session.push_back(
        {.tabs = {}, .activeTab = parseNumber<std::size_t>(attribute(names, values, "active-tab")).value_or(0)});
    ++state.count;
  } else if (depth == 2 && state.isInWindow && name == "embed") {
    state.session.back().tabs.push_back({.title = DesktopSupport::shortened(attribute(names, values, "title")),
                                         .url = attribute(names, values, "url")});
    ++state.count;
  }
}

void endElement(GMarkupParseContext* /*parser*/, const char* /*element*/, gpointer data, GError** /*error*/) {
  --static_cast<State*>(data)->depth;
}

void finish(BrowserSession& session) {
  std::erase_if(session, [](const BrowserWindow& window) { return window.tabs.empty(); });
  for (BrowserWindow& window : session)
    window.activeTab = std::min(window.activeTab, window.tabs.size() - 1);
}

// The session in the file; an empty one if there is no file.
std::expected<BrowserSession, std::string> savedSession(const std::filesystem::path& file) {
  const auto xml = DesktopSupport::fileContents(file, maximumSize);
  std::error_code error;
  if (!xml && std::filesystem::symlink_status(file, error).type() == std::filesystem::file_type::not_found)
    return BrowserSession();
  return xml ? gnomeWebState(*xml) : std::unexpected("It cannot be read or is too large.");
}

}  // namespace

std::expected<BrowserSession, std::string> gnomeWebState(std::string_view xml) {
  static constexpr GMarkupParser callbacks = {.start_element = startElement,
                                              .end_element = endElement,
                                              .text = nullptr,
                                              .passthrough = nullptr,
                                              .error = nullptr};
  const std::string text = validUTF8(xml);
  State state;
  const DesktopSupport::MarkupParserHandle parser(g_markup_parse_context_new(&callbacks, {}, &state, nullptr));
  if (g_markup_parse_context_parse(parser.get(), text.data(), std::ssize(text), nullptr) == FALSE ||
      g_markup_parse_context_end_parse(parser.get(), nullptr) == FALSE || !state.isSession)
    return std::unexpected("It is not the XML of a session.");
  finish(state.session);
  return std::move(state.session);
}

SessionResult gnomeWebSession(const std::filesystem::path& profile, const std::vector<std::string>& windowTitles) {
  const std::filesystem::path file = profile / "session_state.xml";
  auto session = savedSession(file);
  if (!session)
    return std::unexpected("The session of GNOME Web in " + file.string() + " is unknown: " + session.error());
  SessionReading reading = {.session = std::move(*session)};
  if (isOutOfDate(reading.session, windowTitles))
    reading.problems.emplace_back(
        "The list of GNOME Web's tabs may be out of date: a window shows a page that is not saved yet in " +
        profile.string() + '.');
  return reading;
}

bool isOutOfDate(const BrowserSession& session, const std::vector<std::string>& windowTitles) {
  std::set<std::string> titles;
  for (const BrowserWindow& window : session)
    for (const BrowserTab& tab : window.tabs)
      titles.insert(tab.title);
  return std::ranges::any_of(
      windowTitles, [&](const std::string& title) { return !titles.contains(DesktopSupport::shortened(title)); });
}

}  // namespace BrowserSessions
