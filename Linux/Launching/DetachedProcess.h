#pragma once

#include <expected>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Linux {

/// Starts the program at this path in a session of its own with its standard streams at /dev/null, so that it outlives
/// this process and shares nothing with it. `standardInput` may name an open file instead. Yields the process id, or an
/// error number.
std::expected<pid_t, int> startDetached(std::string program, std::vector<std::string> arguments = {},
                                        int standardInput = -1);

}  // namespace Linux
