#pragma once

#include <string>
#include <vector>

namespace Platform::Linux {

/// Starts a program in a session of its own and with its standard streams at /dev/null, so that it outlives this
/// process and shares nothing with it. `program` is a path. Yields an error number, 0 if there was no error.
int startDetached(std::string program, std::vector<std::string> arguments = {});

}  // namespace Platform::Linux
