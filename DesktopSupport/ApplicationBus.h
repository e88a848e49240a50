#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/GLibHandles.h"

namespace DesktopSupport {

/// The D-Bus interface by which applications are activated and given URLs to open.
inline constexpr const char* applicationInterface = "org.freedesktop.Application";

/// The path of the object at which the application with this bus name has the interface: that of com.example.Some-App
/// is /com/example/Some_App.
std::string applicationObjectPath(std::string_view busName);

/// The arguments of the interface's Open, floating. A text that is not UTF-8 cannot travel and is left out.
GVariant* openArguments(const std::vector<std::string_view>& urls);

/// The arguments of the interface's Activate, floating.
GVariant* activateArguments();

}  // namespace DesktopSupport
