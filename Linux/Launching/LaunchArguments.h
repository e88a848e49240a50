#pragma once

#include <expected>
#include <string>
#include <vector>

namespace Linux {

/// What the process was asked for on its command line.
struct LaunchArguments {
  bool help = false;
  bool version = false;
  /// Started by the bus, which delivers what is to be done as a message.
  bool activatedByBus = false;
  /// More launch URLs come on standard input.
  bool readsLaunchURLs = false;
  /// The launch URLs, untouched.
  std::vector<std::string> launchURLs = {};

  /// Reads the arguments after the program's name. Whatever does not begin with a '-' is a launch URL, and so is
  /// everything after "--". Fails with a message for the user over an option that there isn't.
  static std::expected<LaunchArguments, std::string> parse(const std::vector<std::string>& arguments);
};

}  // namespace Linux
