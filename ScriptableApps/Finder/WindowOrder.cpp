#include "ScriptableApps/Finder/WindowOrder.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <utility>

#include "DesktopSupport/Screen/Screen.h"
#include "ScriptableApps/Finder/WindowTitles.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::Window;
using DesktopSupport::WindowID;
using DesktopSupport::WindowList;

// Zero for the topmost window, or the active one if the stack is not known, and more for each window that is lower.
std::ptrdiff_t depthOf(WindowID window, const WindowList& screen) {
  if (screen.stack.empty())
    return screen.active == window ? 0 : 1;
  const auto downwards = screen.stack | std::views::reverse;
  return std::ranges::distance(downwards.begin(), std::ranges::find(downwards, window));
}

// Each reported window with each window on the screen whose title names one of its folders.
using Pair = std::pair<FileManagerWindow*, const Window*>;

std::vector<Pair> namesakes(FileManagerWindows& reported, const FileManager& fileManager) {
  std::vector<Pair> pairs;
  for (const Window& window : fileManager.windows) {
    const FolderTitle title = folderTitle(window, fileManager);
    for (FileManagerWindow& candidate : reported)
      if (std::ranges::any_of(candidate.locations, [&](const auto& location) { return mayName(title, location); }))
        pairs.emplace_back(&candidate, &window);
  }
  return pairs;
}

void placeByTitles(FileManagerWindows& reported, const FileManager& fileManager) {
  const auto pairs = namesakes(reported, fileManager);
  for (const auto& [candidate, window] : pairs)
    if (std::ranges::count(pairs, candidate, &Pair::first) == 1 &&
        std::ranges::count(pairs, window, &Pair::second) == 1)
      candidate->id = window->id;
}

// The file manager's windows that are none of those placed so far.
std::vector<WindowID> placesLeft(const FileManagerWindows& reported, const FileManager& fileManager) {
  std::vector<WindowID> places;
  for (const Window& window : fileManager.windows)
    if (std::ranges::find(reported, window.id, &FileManagerWindow::id) == reported.end())
      places.push_back(window.id);
  return places;
}

// The names of GTK's windows have an order, and no other connection with the windows on the screen. So the first of
// those reported is the first on the screen among those that are left.
void placeByNames(FileManagerWindows& reported, const FileManager& fileManager) {
  std::vector<FileManagerWindow*> unplaced;
  for (FileManagerWindow& window : reported)
    if (!window.id && !window.name.path.empty())
      unplaced.push_back(&window);
  const auto places = placesLeft(reported, fileManager);
  if (unplaced.empty() || places.empty())
    return;
  const auto names = DesktopSupport::readGTKWindows();
  const auto depth = [&](const auto* window) { return std::ranges::find(names, window->name) - names.begin(); };
  std::erase_if(unplaced, [&](const auto* window) { return depth(window) == std::ssize(names); });
  std::ranges::stable_sort(unplaced, {}, depth);
  for (std::size_t index = 0; index < std::min(unplaced.size(), places.size()); ++index)
    unplaced[index]->id = places[index];
}

}  // namespace

std::vector<Window> topmostFirst(const WindowList& screen) {
  std::vector<Window> windows = screen.windows;
  std::ranges::stable_sort(windows, {}, [&](const Window& window) { return depthOf(window.id, screen); });
  return windows;
}

void placeOnScreen(FileManagerWindows& reported, const FileManager& fileManager) {
  // The title of the only window need not name its folder: in Dolphin, the user's places may have any names.
  if (reported.size() == 1 && fileManager.windows.size() == 1) {
    reported.front().id = fileManager.windows.front().id;
    return;
  }
  placeByTitles(reported, fileManager);
  placeByNames(reported, fileManager);
}

void sortTopmostFirst(FileManagerWindows& windows, const WindowsOnScreen& screen) {
  if (!screen)
    return;
  const auto depth = [&](const FileManagerWindow& window) {
    return window.id ? depthOf(*window.id, *screen) : std::ssize(screen->stack) + 2;
  };
  std::ranges::stable_sort(windows, {}, depth);
}

}  // namespace ScriptableApps
