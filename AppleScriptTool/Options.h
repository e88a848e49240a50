#pragma once

#include <expected>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace AppleScriptTool {

/// What the command line asks for.
struct Options {
  /// The text to print, if --help is given.
  std::optional<std::string> help = {};
  bool wantsVersion = false;
  /// The script, if the command line has it. Each line ends with a line feed.
  std::optional<std::string> script = {};
  /// The file with the script. Without `script` and `file`, the script comes from standard input.
  std::optional<std::filesystem::path> file = {};

  /// Reads the arguments, without the program's name. Fails with a sentence for the user.
  static std::expected<Options, std::string> parse(std::span<const std::string_view> arguments);
};

}  // namespace AppleScriptTool
