#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "DesktopSupport/Processes/ProcessInfo.h"

namespace ScriptableApps {

/// The file that stands for an application without a desktop entry.
struct ApplicationFile {
  /// The file of the AppImage, or else the script that the process's interpreter runs, or else its program. Empty if
  /// that is unknown, or is a file of the process's sandbox that is not the file with that path here.
  std::filesystem::path path = {};
  /// The name in the desktop entry inside an AppImage, in the user's language; empty if there is none.
  std::string name = {};
  bool isAppImage = false;
  /// The sandbox of the process, for a sentence: "the Flatpak org.example.App". Empty if it is in none.
  std::string sandbox = {};

  static ApplicationFile of(const DesktopSupport::ProcessInfo& process);

  /// Why the file cannot stand for the application, to follow "is left out: ". `nullopt` if it can.
  [[nodiscard]] std::optional<std::string> problem() const;
};

}  // namespace ScriptableApps
