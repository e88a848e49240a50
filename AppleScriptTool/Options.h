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
  /// What `--help` prints.
  static const std::string_view help;

  bool wantsHelp = false;
  bool wantsVersion = false;
  /// The script where the command line has it, each line of it with its line feed.
  std::optional<std::string> script;
  /// The file that has it; where there is neither, it comes from standard input.
  std::optional<std::filesystem::path> file;

  /// Reads the arguments (without the program's name). Fails with a sentence for the user.
  static std::expected<Options, std::string> parse(std::span<const std::string_view> arguments);
};

}  // namespace AppleScriptTool
