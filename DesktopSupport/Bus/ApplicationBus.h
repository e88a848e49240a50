#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

/// The D-Bus interface by which applications are activated and given URLs to open.
inline constexpr const char* applicationInterface = "org.freedesktop.Application";

/// The interface as introspection XML, for a program that exports it.
extern const char* const applicationIntrospection;

/// Whether the text can be the name that an application has on the bus, such as com.example.Some-App.
bool isApplicationName(const std::string& text);

/// The path of the object at which the application with this bus name has the interface: that of com.example.Some-App
/// is /com/example/Some_App.
std::string applicationObjectPath(std::string_view busName);

/// The length in bytes of the longest URL that Open can carry. It travels in an array, which D-Bus limits to 64 MiB
/// with the text's length and terminator; of a longer one the bus would take nothing, but close the connection.
inline constexpr std::size_t longestOpenURL = (64UL << 20) - 5;

/// The arguments of the interface's Open for one URL, and of its Activate, with the platform data (none: nullptr), a
/// floating variant of type a{sv}; floating. A text that is not UTF-8 cannot travel: then Open gets no URL. The text is
/// not copied.
GVariant* openArguments(std::string url, GVariant* platformData = nullptr);
GVariant* activateArguments(GVariant* platformData = nullptr);

/// The URLs in the arguments of a call of Open.
std::vector<std::string> openedURLs(GVariant* arguments);

}  // namespace DesktopSupport
