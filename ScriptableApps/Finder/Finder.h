#pragma once

#include <chrono>
#include <utility>
#include <vector>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Dictionary.h"
#include "ScriptableApps/Finder/OpenFolders.h"

namespace ScriptableApps {

/// "Finder": the folders that file managers show. Each tab is a window, those of the topmost window first, as far as
/// they are known.
class Finder : public AppleScript::Application {
 public:
  /// `patience` is how long to wait for each program. File managers only have to report what they know, so the default
  /// is far below the language's own two minutes. `searchTime` is how long to look in the file system for folders that
  /// they show, which needs nobody's answer.
  explicit Finder(std::chrono::milliseconds patience = std::chrono::seconds(3),
                  std::chrono::milliseconds searchTime = std::chrono::milliseconds(300))
      : patience_(patience), searchTime_(searchTime) {}

  [[nodiscard]] std::string_view name() const override;
  /// The classes `application`, `window` and `Finder window` with their properties and elements.
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

  /// Yields a `FinderRoot`. If the folders of some windows are not known, or if a folder's path is not one line, what
  /// is missing is logged. Fails with -600 if no file manager is running, and with -1728 and their names if nothing is
  /// known of any of them. Otherwise, if none reports: with -1712 after a timeout, -1723 if access is denied, and -2700
  /// if the answer is malformed.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

 private:
  std::chrono::milliseconds patience_;
  std::chrono::milliseconds searchTime_;
};

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

}  // namespace ScriptableApps
