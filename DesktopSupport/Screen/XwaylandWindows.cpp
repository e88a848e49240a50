#include "DesktopSupport/Screen/XwaylandWindows.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>

#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

// The numbers of X11 windows have 32 bits. Those of windows that only the X server lists get one more.
constexpr WindowID onlyOnX11 = WindowID(1) << 32;

bool hasClass(const Window& window, const std::string& name) {
  const std::array names = {window.windowClass, window.instance, window.applicationID};
  return std::ranges::any_of(names, [&](const std::string& own) { return !own.empty() && lowerCase(own) == name; });
}

bool mayBeTheSame(const Window& window, const Window& x11) {
  if (window.pid && x11.pid)
    return window.pid == x11.pid;
  return hasClass(x11, lowerCase(window.windowClass)) || hasClass(x11, lowerCase(window.applicationID));
}

// The compositor's windows by the X server's.
class Pairs {
 public:
  Pairs(const WindowList& list, const WindowList& x11) : list_(list), isTaken_(list.windows.size()) {
    for (const Window& window : x11.windows)
      pair(window, [&](const Window& other) { return other.title == window.title; });
    for (const Window& window : x11.windows)
      if (!places_.contains(window.id))
        pair(window, [](const Window&) { return true; });
  }

  // The place of the window in the compositor's list.
  [[nodiscard]] std::optional<std::size_t> placeOf(WindowID x11) const {
    const auto place = places_.find(x11);
    return place == places_.end() ? std::nullopt : std::optional(place->second);
  }

  // The number of the X server's window in the joined list.
  [[nodiscard]] WindowID idOf(WindowID x11) const {
    const auto place = placeOf(x11);
    return place ? list_.windows[*place].id : onlyOnX11 | x11;
  }

 private:
  template <typename Condition>
  void pair(const Window& window, Condition isRight) {
    for (std::size_t place = 0; place < list_.windows.size(); ++place) {
      if (isTaken_[place] || !mayBeTheSame(list_.windows[place], window) || !isRight(list_.windows[place]))
        continue;
      isTaken_[place] = true;
      places_.emplace(window.id, place);
      return;
    }
  }

  const WindowList& list_;
  std::vector<bool> isTaken_;
  std::unordered_map<WindowID, std::size_t> places_;
};

// What the two say about a window of an X11 program.
Window joined(const Window& window, const Window& x11) {
  Window both = x11;
  both.title = window.title;
  if (both.applicationID.empty())
    both.applicationID = window.applicationID;
  if (!both.transientFor)
    both.transientFor = window.transientFor;
  if (!both.pid)
    both.pid = window.pid;
  both.isOrdinary = window.isOrdinary && x11.isOrdinary;
  both.isHidden = window.isHidden || x11.isHidden;
  return both;
}

}  // namespace

bool needsX11Windows(const WindowList& list) {
  return !list.isComplete || std::ranges::any_of(list.windows, [](const Window& window) { return !window.pid; });
}

void addX11Windows(WindowList& list, const WindowList& x11) {
  const Pairs pairs(list, x11);
  for (Window window : x11.windows) {
    const auto place = pairs.placeOf(window.id);
    window.id = pairs.idOf(window.id);
    if (window.transientFor)
      window.transientFor = pairs.idOf(*window.transientFor);
    if (place)
      list.windows[*place] = joined(list.windows[*place], window);
    else if (!list.isComplete)
      list.windows.push_back(window);
  }
  if (!list.active && x11.active && !list.isComplete)
    list.active = pairs.idOf(*x11.active);
}

}  // namespace DesktopSupport
