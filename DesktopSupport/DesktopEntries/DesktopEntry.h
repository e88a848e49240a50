#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace DesktopSupport {

/// What a desktop entry says about an application.
struct DesktopEntry {
  /// The desktop file id without ".desktop".
  std::string id = {};
  std::filesystem::path file = {};
  /// In the user's language.
  std::string name = {};
  /// The command lines as written; empty where the entry has none.
  std::string exec = {};
  std::string tryExec = {};
  std::string startupClass = {};
  bool isShown = true;
  /// Whether the session bus starts it, under its id as the bus name, and it takes URLs there. False if the id cannot
  /// be a bus name.
  bool isBusActivatable = false;
  /// Stands for "not installed": a hidden entry masks those of its id in the folders behind its own.
  bool isHidden = false;

  /// Reads the entry in `file`. None where it is no usable entry: not readable, not parsable, not an application, or
  /// without a name (which a hidden one needs not have).
  static std::optional<DesktopEntry> read(const std::filesystem::path& file, std::string id);
};

}  // namespace DesktopSupport
