#pragma once

#include <filesystem>
#include <optional>

#include "DeskloomSDK/Resources/Resource.h"
#include "Platform/Text/URL.h"
#include "RecentDocument.h"

namespace RecentFiles {

/// The path that a URL names on this machine; none for one that is no file's or is another machine's.
std::optional<std::filesystem::path> localPath(const Platform::URL& url);

/// The document as the host keeps it: a folder, a file, a website, or whatever else a URL can name. None where its
/// address is no URL.
std::optional<DeskloomSDK::Resource> makeResource(const RecentDocument& document);

}  // namespace RecentFiles
