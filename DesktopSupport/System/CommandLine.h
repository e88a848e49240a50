#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace DesktopSupport {

/// What a command line runs: the program by its base name and the arguments behind it. `env` and interpreters are not
/// what somebody means to run, so they are skipped: "env A=1 python3 -u /usr/bin/tool --fast" runs "tool" with
/// "--fast".
struct CommandLine {
  std::string program;
  std::vector<std::string> arguments;

  /// None where nothing remains: an interpreter by itself, or one that is given its program as an argument ("sh -c").
  static std::optional<CommandLine> from(const std::vector<std::string>& arguments);

  /// From the Exec value of a desktop entry. Arguments with field codes (%U) are left out: what they become is not
  /// known.
  static std::optional<CommandLine> fromExec(const std::string& exec);

  /// Whether this is `other`, perhaps with more arguments behind.
  [[nodiscard]] bool continues(const CommandLine& other) const;
};

/// Whether the base name of a program is that of an interpreter or runtime, which says nothing about what it runs.
bool isInterpreter(std::string_view program);

/// The script that a command line has the interpreter with the base name `program` run, as it is written there. None if
/// `program` is no interpreter, or if the command line names no file: "-c", "python3 -m", a script from the input.
std::optional<std::string> scriptOf(std::string_view program, const std::vector<std::string>& arguments);

}  // namespace DesktopSupport
