#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace DesktopSupport {

/// A file that may hold a desktop entry, and the id that it gives.
struct DesktopEntryFile {
  std::filesystem::path file;
  std::string id;
};

/// The ".desktop" files in `folder` and its sub-folders in the order of their names, each real folder once whatever
/// links lead to it. Files whose paths cannot be told in one line of text are left out.
std::vector<DesktopEntryFile> desktopEntryFiles(const std::filesystem::path& folder);

/// The id of `file` as an entry of `folder`: its path inside, joined with '-', without ".desktop".
std::string desktopFileId(const std::filesystem::path& file, const std::filesystem::path& folder);

}  // namespace DesktopSupport
