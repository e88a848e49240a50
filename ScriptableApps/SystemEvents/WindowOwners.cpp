#include "ScriptableApps/SystemEvents/WindowOwners.h"

namespace ScriptableApps {

using DesktopSupport::WindowID;

WindowOwners::WindowOwners(const DesktopSupport::WindowList& list) {
  for (const DesktopSupport::Window& window : list.windows)
    parents_.emplace(window.id, window.transientFor);
}

std::optional<WindowID> WindowOwners::parentOf(WindowID window) const {
  const auto found = parents_.find(window);
  const auto parent = found == parents_.end() ? std::nullopt : found->second;
  return parent && parents_.contains(*parent) ? parent : std::nullopt;
}

WindowID WindowOwners::ownerOf(WindowID window) const {
  constexpr int deepestDialog = 100;
  WindowID owner = window;
  for (int depth = 0; depth < deepestDialog; ++depth) {
    const auto parent = parentOf(owner);
    if (!parent)
      return owner;
    owner = *parent;
  }
  return window;
}

}  // namespace ScriptableApps
