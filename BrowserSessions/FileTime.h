#pragma once

#include <chrono>
#include <filesystem>
#include <optional>

namespace BrowserSessions {

using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

/// When a file was last written, or a symbolic link was made; `nullopt` if there is none. Two times of one file system
/// are of one clock, which goes in steps of some milliseconds.
std::optional<FileTime> fileTime(const std::filesystem::path& file);

}  // namespace BrowserSessions
