#include "BrowserSessions/Firefox/FirefoxStateReader.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

namespace BrowserSessions {

namespace {

// Frames in a page's history nest, but no page has this many levels.
constexpr std::size_t maximumDepth = 512;
// Of windows, tabs and pages in histories together.
constexpr std::size_t maximumCount = 1'000'000;

struct Container {
  bool isArray;
  // Its key in the object around it; empty for an element of an array.
  std::string_view key;
};

// The containers that lead to a page of a tab's history, the outermost first.
constexpr std::array<Container, 7> way = {
    {{false, ""}, {true, "windows"}, {false, ""}, {true, "tabs"}, {false, ""}, {true, "entries"}, {false, ""}}};
// How many of them are open at each level.
constexpr std::size_t inSession = 1;
constexpr std::size_t windowList = 2;
constexpr std::size_t inWindow = 3;
constexpr std::size_t inTab = 5;
constexpr std::size_t inPage = 7;

}  // namespace

bool FirefoxStateReader::boolean(bool value) {
  if (level() == inWindow && key_ == "isPrivate")
    windows_.back().isPrivate = value;
  else if (level() == inTab && key_ == "isPrivate")
    windows_.back().tabs.back().isPrivate = value;
  else if (level() == inTab && key_ == "hidden")
    windows_.back().tabs.back().isHidden = value;
  return true;
}

bool FirefoxStateReader::number_integer(std::int64_t value) {
  if (isInVersion())
    version_ = value;
  else if (level() == inSession && key_ == "selectedWindow")
    selectedWindow_ = value;
  else if (level() == inWindow && key_ == "selected")
    windows_.back().selected = value;
  else if (level() == inWindow && key_ == "zIndex")
    windows_.back().place = value;
  else if (level() == inTab && key_ == "index")
    windows_.back().tabs.back().index = value;
  else if (level() == inTab && key_ == "userTypedClear")
    windows_.back().tabs.back().isLoadingTypedAddress = value != 0;
  return true;
}

bool FirefoxStateReader::number_unsigned(std::uint64_t value) {
  constexpr std::uint64_t highest = std::numeric_limits<std::int64_t>::max();
  return number_integer(static_cast<std::int64_t>(std::min(value, highest)));
}

bool FirefoxStateReader::number_float(double /*value*/, const std::string& /*text*/) {
  return true;
}

bool FirefoxStateReader::string(std::string& value) {
  if (isInVersion())
    isKnownFormat_ = value == "sessionrestore";
  else if (level() == inTab && key_ == "userTypedValue")
    windows_.back().tabs.back().typedAddress = std::move(value);
  else if (level() == inPage && key_ == "url")
    windows_.back().tabs.back().history.back().url = std::move(value);
  else if (level() == inPage && key_ == "title")
    windows_.back().tabs.back().history.back().title = std::move(value);
  return true;
}

bool FirefoxStateReader::binary(nlohmann::json::binary_t& /*value*/) {
  return true;
}

bool FirefoxStateReader::start_object(std::size_t /*size*/) {
  return open(false);
}

bool FirefoxStateReader::key(std::string& name) {
  key_ = std::move(name);
  return true;
}

bool FirefoxStateReader::end_object() {
  return close();
}

bool FirefoxStateReader::start_array(std::size_t /*size*/) {
  return open(true);
}

bool FirefoxStateReader::end_array() {
  return close();
}

bool FirefoxStateReader::parse_error(std::size_t /*position*/, const std::string& /*token*/,
                                     const nlohmann::detail::exception& /*error*/) {
  return false;
}

bool FirefoxStateReader::open(bool isArray) {
  const bool mayLead = depth_ == onTheWay_ && depth_ < way.size();
  if (mayLead && way[depth_].isArray == isArray && (way[depth_].key.empty() || way[depth_].key == key_)) {
    ++onTheWay_;
    add();
  }
  ++depth_;
  return depth_ <= maximumDepth && count_ <= maximumCount;
}

bool FirefoxStateReader::close() {
  if (onTheWay_ == depth_)
    --onTheWay_;
  --depth_;
  return true;
}

void FirefoxStateReader::add() {
  ++count_;
  if (onTheWay_ == windowList)
    isSession_ = true;
  else if (onTheWay_ == inWindow)
    windows_.emplace_back();
  else if (onTheWay_ == inTab)
    windows_.back().tabs.emplace_back();
  else if (onTheWay_ == inPage)
    windows_.back().tabs.back().history.emplace_back();
}

}  // namespace BrowserSessions
