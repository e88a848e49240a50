#pragma once

#include <chrono>

#include "AppleScript/Values/Application.h"

namespace ScriptableApps {

/// "Finder": the folders that file managers show, one window for each; a tab is a window of its own. The topmost come
/// first. File managers are asked over D-Bus, and the X server for their order.
class Finder : public AppleScript::Application {
 public:
  /// `patience` is how long each program is waited for. It only has to tell what it knows, so the default is far
  /// below the language's own two minutes.
  explicit Finder(std::chrono::milliseconds patience = std::chrono::seconds(3)) : patience_(patience) {}

  [[nodiscard]] std::string_view name() const override;
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override;

  /// What a file manager beside one that told has not told, and a folder whose path is not one line, is in the system's
  /// log. Fails with -600 if no file manager runs, and with -1728 and their names if they don't tell what they show.
  /// Else, if none told: with -1712 if it stayed silent, -1723 if it may not be asked, and -2700 if its answer makes no
  /// sense.
  [[nodiscard]] AppleScript::Result<AppleScript::ObjectPointer> open() override;

 private:
  std::chrono::milliseconds patience_;
};

}  // namespace ScriptableApps
