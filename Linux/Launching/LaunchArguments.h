#pragma once

#include <expected>
#include <string>
#include <vector>

namespace Linux {

/// What the command line asks for.
struct LaunchArguments {
  bool help = false;
  bool version = false;
  /// Started by the bus, which delivers the launch URL as a message.
  bool activatedByBus = false;
  /// More launch URLs come on standard input.
  bool readsLaunchURLs = false;
  /// The launch URLs, unchanged.
  std::vector<std::string> launchURLs = {};

  /// Reads the arguments after the program's name. An argument that does not begin with '-' is a launch URL, and so is
  /// everything after "--". An unknown option fails with a message for the user.
  static std::expected<LaunchArguments, std::string> parse(const std::vector<std::string>& arguments);
};

/// Writes launch URLs to an open file, each ended by a NUL. One process leaves them to another in this form because an
/// argument of a process is limited in length. Fails with an error number.
std::expected<void, int> writeLaunchURLs(int file, const std::vector<std::string>& launchURLs);

/// Reads such launch URLs to the end of the file; the last one may lack its NUL. Fails with an error number, which is
/// EFBIG for more than 256 MiB.
std::expected<std::vector<std::string>, int> readLaunchURLs(int file);

}  // namespace Linux
