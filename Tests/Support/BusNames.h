#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace TestSupport {

/// Whether this name has an owner on the session bus.
bool hasOwner(const std::string& busName);

/// Waits until this name has an owner on the session bus, without starting one. Throws if it takes too long.
void awaitOwner(const std::string& busName);

/// Waits until this many names that begin with the prefix have owners on the session bus, and returns them. Throws if
/// it takes too long.
std::vector<std::string> awaitOwners(const std::string& prefix, std::size_t count);

/// Waits until this name has no owner on the session bus. Throws if it takes too long.
void awaitNoOwner(const std::string& busName);

/// Calls org.freedesktop.Application.Open of the application with this bus name, which the bus starts if needed.
/// Returns whether it answered.
bool openURL(const std::string& busName, const std::string& url);

/// Sets an environment variable for programs that the session bus starts from now on.
void setActivationEnvironment(const std::string& variable, const std::string& value);

}  // namespace TestSupport
