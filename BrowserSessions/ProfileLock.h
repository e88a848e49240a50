#pragma once

#include <filesystem>

namespace BrowserSessions {

/// Whether another process has locked the Firefox profile in this folder. A Firefox holds the lock for as long as it
/// runs, and it goes with the process however that ends; the lock's file says nothing, as it stays. Waits for nothing.
/// False where there is no such file, or it cannot be opened.
bool isLockedProfile(const std::filesystem::path& profile);

}  // namespace BrowserSessions
