#pragma once

#include <expected>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Linux {

/// Starts a program in a session of its own and with its standard streams at /dev/null, so that it outlives this
/// process and shares nothing with it. `program` is a path; standard input can be another open file. Yields the process
/// id, or an error number.
std::expected<pid_t, int> startDetached(std::string program, std::vector<std::string> arguments = {},
                                        int standardInput = -1);

}  // namespace Linux
