#pragma once

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

#include "RecentDocument.h"

namespace RecentFiles {

/// Where the desktop keeps its list of recently used documents: recently-used.xbel in the user's data folder.
std::filesystem::path recentDocumentsFile();

/// The documents of such a list, the one that was used last first. Those that a program keeps to itself are left out.
/// Fails with a sentence where there is no such file, where it is larger than 16 MiB, or where it is malformed.
std::expected<std::vector<RecentDocument>, std::string> recentDocuments(const std::filesystem::path& file);

}  // namespace RecentFiles
