#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "DesktopSupport/Processes/CommandLine.h"

namespace DesktopSupport {

/// What a desktop entry says about an application.
struct DesktopEntry {
  /// The desktop file id without ".desktop".
  std::string id = {};
  std::filesystem::path file = {};
  /// In the user's language.
  std::string name = {};
  /// The command lines as written; empty if the entry has none.
  std::string exec = {};
  std::string tryExec = {};
  std::string startupClass = {};
  bool isShown = true;
  /// Whether the session bus starts the application, with the entry's id as its bus name, and it takes URLs there.
  /// False if the id cannot be a bus name.
  bool isBusActivatable = false;
  /// Means "not installed": a hidden entry masks those with its id in the folders after its own.
  bool isHidden = false;

  /// Reads the entry in `file`. `nullopt` if the file cannot be read or parsed, or the entry is not an application or
  /// has no name; a hidden entry needs neither.
  static std::optional<DesktopEntry> read(const std::filesystem::path& file, std::string id);
};

/// Desktop entries by what they say about their windows and programs. If several match, one that menus show is
/// preferred, then the one with the first id in alphabetical order.
class DesktopEntryIndex {
 public:
  /// `entries` are in the order of their ids, and must outlive the index.
  explicit DesktopEntryIndex(const std::vector<const DesktopEntry*>& entries);

  /// The entry whose StartupWMClass is `windowClass`, preferably the one with that id. Null if there is none.
  [[nodiscard]] const DesktopEntry* withStartupClass(std::string_view windowClass) const;

  /// The same, ignoring case.
  [[nodiscard]] const DesktopEntry* withStartupClassIgnoringCase(std::string_view windowClass) const;

  /// The entry that starts the program of `command`: among those whose fixed arguments `command` begins with, the one
  /// with the most of them. Null if there is none.
  [[nodiscard]] const DesktopEntry* starting(const CommandLine& command) const;

 private:
  struct Start {
    const DesktopEntry* entry = nullptr;
    CommandLine command;
  };
  void addStarts(const DesktopEntry& entry);

  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byStartupClass_;
  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byLowerCaseClass_;
  std::unordered_map<std::string, std::vector<Start>> byProgram_;
};

}  // namespace DesktopSupport
