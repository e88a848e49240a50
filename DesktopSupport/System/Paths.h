#pragma once

#include <filesystem>

namespace DesktopSupport {

/// Whether `file` is `folder` or something inside it, by the texts of the paths alone.
bool isInside(const std::filesystem::path& file, const std::filesystem::path& folder);

}  // namespace DesktopSupport
