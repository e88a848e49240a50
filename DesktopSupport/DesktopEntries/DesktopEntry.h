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
  /// The application id of the Flatpak, or the name of the snap, that has the application; empty if there is none.
  std::string flatpak = {};
  std::string snap = {};
  /// The name of the snap's application.
  std::string snapApplication = {};
  /// The names that the entry's file had before Flatpak gave it its own, separated by ';'.
  std::string formerNames = {};
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

  /// The entries of the Flatpak with this application id, or of the snap with this name, in the order of their ids.
  [[nodiscard]] std::vector<const DesktopEntry*> ofFlatpak(std::string_view application) const;
  [[nodiscard]] std::vector<const DesktopEntry*> ofSnap(std::string_view name) const;

  /// The entry that goes by `name` although that is not its id. It is the id in another case, or else the application
  /// id of the entry's Flatpak, the name of the snap and of its application, or the id before Flatpak gave the entry
  /// its own. Null if there is none.
  [[nodiscard]] const DesktopEntry* alsoCalled(std::string_view name) const;

  /// The one entry with an id such as "org.example.Name" that ends with `name`, ignoring case, and that menus show.
  /// Null if there is none or more than one.
  [[nodiscard]] const DesktopEntry* endingWith(std::string_view name) const;

  /// The entries whose Exec or TryExec is the program in this file, in the order of their ids.
  [[nodiscard]] std::vector<const DesktopEntry*> running(const std::filesystem::path& program) const;

  /// The entry that starts the program of `command`: among those whose fixed arguments `command` begins with, the one
  /// with the most of them. Null if there is none.
  [[nodiscard]] const DesktopEntry* starting(const CommandLine& command) const;

 private:
  struct Start {
    const DesktopEntry* entry = nullptr;
    CommandLine command;
  };
  void addStarts(const DesktopEntry& entry);

  std::vector<const DesktopEntry*> entries_;
  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byStartupClass_;
  std::unordered_map<std::string, std::vector<const DesktopEntry*>> byLowerCaseClass_;
  std::unordered_map<std::string, std::vector<Start>> byProgram_;
};

}  // namespace DesktopSupport
