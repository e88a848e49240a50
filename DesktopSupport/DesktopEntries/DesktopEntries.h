#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "DesktopSupport/DesktopEntries/DesktopEntryIndex.h"

namespace DesktopSupport {

/// The desktop entries of a list of folders, of which the first has precedence. An entry in a sub-folder has an id
/// joined with '-': "kde/konsole.desktop" is "kde-konsole". Reads only what is asked for, and each file once. Entries
/// that were handed out stay where they are for as long as this lives; hidden and broken ones are never handed out.
class DesktopEntries {
 public:
  /// `folders` are the "applications" folders themselves (see `applicationFolders`); some may not exist.
  explicit DesktopEntries(std::vector<std::filesystem::path> folders);

  /// The entry with this desktop file id, given without ".desktop"; nullptr where there is none.
  [[nodiscard]] const DesktopEntry* find(std::string_view id);

  /// The entry in `file`, which may lie outside of the folders. `nullptr` if there is none, and for a relative path.
  [[nodiscard]] const DesktopEntry* findFile(const std::filesystem::path& file);

  /// All entries by what they say about their windows and programs. Reads all files, the first time.
  [[nodiscard]] const DesktopEntryIndex& index();

  /// How many files were opened so far.
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
