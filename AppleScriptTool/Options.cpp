#include "AppleScriptTool/Options.h"

#include <cstddef>

namespace AppleScriptTool {

const std::string_view Options::help = R"(Usage: applescript [-e LINE]... | [FILE]

Runs a script that asks the applications of this desktop what they have open: "System Events", "Finder", "Google Chrome",
"Safari" and "Deskloom". Prints what its last statement yields: a text as it is, anything else as the language writes it.
On a terminal, control characters are left out and those that change the direction of writing shown as their codes. An
error is printed with its place and its number on standard error, and the exit status is 1.

  -e LINE    a line of the script; may be repeated
  FILE       the file with the script; standard input where there is none, or where it is -
  --help     show this text
  --version  show the version

  applescript -e 'tell application "Safari" to get URL of every tab of window 1'
)";

std::expected<Options, std::string> Options::parse(std::span<const std::string_view> arguments) {
  Options options;
  for (std::size_t index = 0; index < arguments.size(); ++index) {
    const std::string_view argument = arguments[index];
    if (argument == "--help")
      options.wantsHelp = true;
    else if (argument == "--version")
      options.wantsVersion = true;
    else if (argument == "-e" && index + 1 < arguments.size())
      options.script = options.script.value_or("").append(arguments[++index]).append("\n");
    else if (argument == "-e")
      return std::unexpected("-e needs a line");
    else if (argument.starts_with('-') && argument != "-")
      return std::unexpected("there is no option " + std::string(argument));
    else if (options.file)
      return std::unexpected("it takes one file only");
    else
      options.file = argument;
  }
  if (options.script && options.file)
    return std::unexpected("it takes either lines or a file");
  if (options.file == "-")
    options.file.reset();
  return options;
}

}  // namespace AppleScriptTool
