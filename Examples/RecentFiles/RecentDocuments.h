#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

namespace RecentFiles {

/// One entry of the desktop's list of recently used documents, unchanged.
struct RecentDocument {
  /// The text of a URL, which may be invalid.
  std::string address;
  /// The document's name according to the program that used it; usually empty.
  std::string title = {};
  std::string mimeType = {};
};

/// The desktop's list of recently used documents: recently-used.xbel in the user's data folder.
std::filesystem::path recentDocumentsFile();

/// The documents of such a list, the one used last first. Leaves out documents that a program has marked as private.
/// Fails with a message if the file does not exist, is larger than 16 MiB, or is malformed.
std::expected<std::vector<RecentDocument>, std::string> recentDocuments(const std::filesystem::path& file);

}  // namespace RecentFiles
