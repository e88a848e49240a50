#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <string>

namespace DesktopSupport {

/// The functions here load GIO, which takes more than half as long as a launch without it, and which few need.

/// The path at which the location with this URI is mounted; `nullopt` if it is not mounted. Starts the desktop's
/// virtual file systems if they don't run.
std::optional<std::string> mountedPath(const std::string& uri);

/// Starts the program of a desktop entry with a URL as its argument. Fails with a clause for the log.
std::expected<void, std::string> startWithURL(const std::filesystem::path& desktopEntry, std::string url);

}  // namespace DesktopSupport
