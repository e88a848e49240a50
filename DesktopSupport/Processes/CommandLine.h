#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace DesktopSupport {

/// What a command line runs: the program by its base name, and the arguments after it. `env` and interpreters are
/// skipped, since nobody means them: "env A=1 python3 -u /usr/bin/tool --fast" runs "tool" with "--fast".
struct CommandLine {
  std::string program;
  std::vector<std::string> arguments;
  /// The program as it is written, perhaps with its folder.
  std::string path = {};

  /// `nullopt` if nothing remains: an interpreter by itself, or one that gets its program as an argument ("sh -c").
  static std::optional<CommandLine> from(const std::vector<std::string>& arguments);

  /// From the Exec value of a desktop entry. Arguments with field codes (%U) are left out, since their values are
  /// unknown.
  static std::optional<CommandLine> fromExec(const std::string& exec);

  /// Whether this is `other`, perhaps followed by more arguments.
  [[nodiscard]] bool continues(const CommandLine& other) const;
};

/// Whether this is the base name of an interpreter or runtime, which says nothing about what it runs.
bool isInterpreter(std::string_view program);

/// The script that the interpreter with the base name `program` runs, as its command line writes it. `nullopt` if
/// `program` is no interpreter, or the command line names no file: "-c", "python3 -m", a script on standard input.
std::optional<std::string> scriptOf(std::string_view program, const std::vector<std::string>& arguments);

}  // namespace DesktopSupport
