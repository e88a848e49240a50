#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"

namespace DesktopSupport {

/// The folders that are searched for desktop entries, the preferred one first: "applications" in $XDG_DATA_HOME and in
/// each of $XDG_DATA_DIRS, then in what Flatpak and Snap export, which $XDG_DATA_DIRS lacks in a program that was not
/// started from the desktop.
std::vector<std::filesystem::path> applicationFolders();

/// The desktop entries in some folders. An entry in a sub-folder has an id joined with '-': "kde/konsole.desktop" is
/// "kde-konsole". Reads only what is asked for, and each file once. Entries stay valid for as long as this object
/// lives. Hidden and broken ones are never returned.
class DesktopEntries {
 public:
  /// `folders` are the "applications" folders themselves, the preferred one first. Some may not exist.
  explicit DesktopEntries(std::vector<std::filesystem::path> folders);

  /// The entry with this desktop file id, given without ".desktop"; null if there is none.
  [[nodiscard]] const DesktopEntry* find(std::string_view id);

  /// The entry in `file`, which may be outside of the folders. Null if there is none, or if the path is relative.
  [[nodiscard]] const DesktopEntry* findFile(const std::filesystem::path& file);

  /// All entries by what they say about their windows and programs. The first call reads all files.
  [[nodiscard]] const DesktopEntryIndex& index();

  /// How many files have been read so far.
  [[nodiscard]] std::size_t filesRead() const { return filesRead_; }

 private:
  [[nodiscard]] std::optional<DesktopEntry> read(const std::filesystem::path& file, std::string id);
  [[nodiscard]] std::optional<DesktopEntry> search(const std::filesystem::path& folder, std::string_view rest,
                                                   const std::string& id);
  [[nodiscard]] std::optional<DesktopEntry> search(const std::string& id);
  void readAll();

  std::vector<std::filesystem::path> folders_;
  std::map<std::string, std::optional<DesktopEntry>, std::less<>> entries_;
  std::map<std::filesystem::path, std::optional<DesktopEntry>> others_;
  std::unique_ptr<DesktopEntryIndex> index_;
  std::size_t filesRead_ = 0;
};

}  // namespace DesktopSupport
