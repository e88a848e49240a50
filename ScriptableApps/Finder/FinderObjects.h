#pragma once

#include <utility>
#include <vector>

#include "AppleScript/Values/Dictionary.h"
#include "ScriptableApps/Finder/OpenFolder.h"

namespace ScriptableApps {

/// A window of the Finder: a folder that a file manager shows.
class FinderWindow : public AppleScript::Object {
 public:
  explicit FinderWindow(OpenFolder folder) : folder_(std::move(folder)) {}

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override;
  [[nodiscard]] const OpenFolder& folder() const { return folder_; }

 private:
  OpenFolder folder_;
};

/// The Finder itself, with its windows.
class FinderRoot : public AppleScript::Object {
 public:
  explicit FinderRoot(std::vector<FinderWindow> windows) : windows_(std::move(windows)) {}

  [[nodiscard]] const AppleScript::ClassDescription& classDescription() const override;
  [[nodiscard]] const std::vector<FinderWindow>& windows() const { return windows_; }

 private:
  std::vector<FinderWindow> windows_;
};

/// The classes `application`, `window` and `Finder window` with their properties and elements.
const AppleScript::Dictionary& finderDictionary();

}  // namespace ScriptableApps
