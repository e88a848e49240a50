#pragma once

#include <string>

namespace TestSupport {

/// Whether somebody has this name on the session bus.
bool hasOwner(const std::string& busName);

/// Waits until somebody has this name on the session bus. Starts nobody. Throws if nobody does in time.
void awaitOwner(const std::string& busName);

/// Waits until nobody has this name on the session bus. Throws if somebody still has it in the end.
void awaitNoOwner(const std::string& busName);

/// Calls org.freedesktop.Application.Open of the application with this bus name, which the bus starts if needed, and
/// waits for the answer. Yields whether there was one.
bool openURL(const std::string& busName, const std::string& url);

/// Sets a variable in the environment of the programs that the session bus starts from now on.
void setActivationEnvironment(const std::string& variable, const std::string& value);

}  // namespace TestSupport
