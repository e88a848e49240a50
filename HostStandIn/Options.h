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
  /// What `--help` prints.
  static const std::string_view help;

  bool wantsHelp = false;
  bool wantsVersion = false;
  /// Print resources as a table in place of the URL that carries them.
  bool decode = false;
  /// Leave once so many URLs have been received; none stays until it is ended.
  std::optional<std::size_t> exitAfter;
  std::optional<std::filesystem::path> log;
  ScriptingCommands::Setup setup;

  /// What holds where the command line says nothing: the log named by DESKLOOM_HOST_LOG, and the plug-in folder in the
  /// user's data folder.
  static Options fromEnvironment();

  /// The defaults as changed by the arguments (without the program's name). Fails with a sentence for the user.
  static std::expected<Options, std::string> parse(std::span<const std::string_view> arguments, Options defaults);
};

}  // namespace HostStandIn
