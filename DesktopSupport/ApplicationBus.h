#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/GLibHandles.h"

namespace DesktopSupport {

/// The D-Bus interface by which applications are activated and given URLs to open.
inline constexpr const char* applicationInterface = "org.freedesktop.Application";

/// Whether the text can be the name that an application has on the bus, such as com.example.Some-App.
bool isApplicationName(const std::string& text);

/// The path of the object at which the application with this bus name has the interface: that of com.example.Some-App
/// is /com/example/Some_App.
std::string applicationObjectPath(std::string_view busName);

/// The length in bytes of the longest URL that Open can carry. It travels in an array, which D-Bus limits to 64 MiB
/// with the text's length and terminator; of a longer one the bus would take nothing, but close the connection.
inline constexpr std::size_t longestOpenURL = (64UL << 20) - 5;

/// How many of `urls`, from the first on, one Open can carry together: at least the first, if that is not too long.
std::size_t urlsInOneOpen(std::span<const std::string> urls);

/// The arguments of the interface's Open, floating. A text that is not UTF-8 cannot travel and is left out.
GVariant* openArguments(const std::vector<std::string_view>& urls);

/// The arguments of the interface's Activate, floating.
GVariant* activateArguments();

}  // namespace DesktopSupport
