#pragma once

#include <optional>
#include <unordered_map>

#include "DesktopSupport/Windows/Window.h"

namespace ScriptableApps {

/// Which window of a list stands for which: a dialog for the window that it belongs to, any other for itself.
class WindowOwners {
 public:
  explicit WindowOwners(const DesktopSupport::WindowList& list);

  /// The window that `window` counts for. Itself where the one it belongs to is not in the list, or where windows say
  /// that they belong to each other.
  [[nodiscard]] DesktopSupport::WindowID ownerOf(DesktopSupport::WindowID window) const;

 private:
  [[nodiscard]] std::optional<DesktopSupport::WindowID> parentOf(DesktopSupport::WindowID window) const;

  // Each window of the list with the one that it says it belongs to.
  std::unordered_map<DesktopSupport::WindowID, std::optional<DesktopSupport::WindowID>> parents_;
};

}  // namespace ScriptableApps
