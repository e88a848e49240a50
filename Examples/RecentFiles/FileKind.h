#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace RecentFiles {

/// The kind of documents that an action sends. The order is that of `fileKindNames`.
enum class FileKind { all, documents, images, media, folders };

/// The strings in a configuration. Any other string is read as `all`.
NLOHMANN_JSON_SERIALIZE_ENUM(FileKind, {{FileKind::all, "all"},
                                        {FileKind::documents, "documents"},
                                        {FileKind::images, "images"},
                                        {FileKind::media, "media"},
                                        {FileKind::folders, "folders"}})

/// The names that the user sees, in the order of the kinds.
std::vector<std::string> fileKindNames();

/// Whether documents of this MIME type belong to the kind.
bool contains(FileKind kind, std::string_view mimeType);

}  // namespace RecentFiles
