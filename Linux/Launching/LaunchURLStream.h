#pragma once

#include <expected>
#include <string>
#include <vector>

namespace Linux {

/// Launch URLs as bytes, each ended by a NUL: the form in which one process leaves them to another, since an argument
/// of a process is limited in length. Both operations take an open file and fail with an error number.

/// Writes the launch URLs.
std::expected<void, int> writeLaunchURLs(int file, const std::vector<std::string>& launchURLs);

/// Reads to the end of the file; the last URL may lack its NUL. Fails with EFBIG over more than 256 MiB.
std::expected<std::vector<std::string>, int> readLaunchURLs(int file);

}  // namespace Linux
