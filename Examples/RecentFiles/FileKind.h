#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace RecentFiles {

/// Which documents an action is about. Their order is that of `fileKindNames`.
enum class FileKind { all, documents, images, media, folders };

/// How a kind stands in a configuration; a string that names none is read as all.
NLOHMANN_JSON_SERIALIZE_ENUM(FileKind, {{FileKind::all, "all"},
                                        {FileKind::documents, "documents"},
                                        {FileKind::images, "images"},
                                        {FileKind::media, "media"},
                                        {FileKind::folders, "folders"}})

/// What the user reads of each kind, in their order.
std::vector<std::string> fileKindNames();

/// Whether documents of this MIME type are of the kind.
bool contains(FileKind kind, std::string_view mimeType);

}  // namespace RecentFiles
