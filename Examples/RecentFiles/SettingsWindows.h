#pragma once

#include <memory>

#include "Configs.h"
#include "Platform/Windows.h"

namespace RecentFiles {

/// The window in which the user edits one action. It is not shown yet, and null if there is no display. Each change is
/// saved to the host.
std::unique_ptr<Platform::Window> makeEditWindow(const std::shared_ptr<ActionConfigProvider>& provider);

/// The window in which the user configures the plug-in as a whole; otherwise as above.
std::unique_ptr<Platform::Window> makeConfigureWindow(const std::shared_ptr<PluginConfigProvider>& provider);

}  // namespace RecentFiles
