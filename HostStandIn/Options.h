#pragma once

#include <cstddef>
#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "HostStandIn/ScriptingCommands.h"

namespace HostStandIn {

/// What the command line asks for.
struct Options {
  /// The text to print, if --help is given.
  std::optional<std::string> help;
  bool wantsVersion = false;
  /// Whether to print the resources that a URL carries as a table instead of the URL.
  bool decode = false;
  /// The number of URLs to receive before the host exits; `nullopt` if it runs until it is ended.
  std::optional<std::size_t> exitAfter;
  /// The file to which URLs are appended.
  std::optional<std::filesystem::path> log;
  ScriptingCommands::Setup setup;

  /// The defaults: the log that DESKLOOM_HOST_LOG names, and the plug-in folder in the user's data folder.
  static Options fromEnvironment();

  /// The defaults as changed by the arguments, which are without the program's name. Fails with a sentence for the
  /// user.
  static std::expected<Options, std::string> parse(std::span<const std::string_view> arguments, Options defaults);
};

}  // namespace HostStandIn
