#include "AppleScriptTool/Options.h"

#include "DesktopSupport/System/ProgramOptions.h"

namespace AppleScriptTool {

namespace {

constexpr const char* summary =
    R"(Runs a script that asks the applications on this desktop what they have open: "System Events", "Finder",
"Google Chrome", "Safari" and "Deskloom". The script is in FILE, in the lines given with -e, or on standard
input if there is neither, or if FILE is "-".

Prints the result of the last statement: a text as it is, any other value as it would be written in a script.
On a terminal, control characters are left out, and characters that change the direction of writing are shown
as their codes. An error goes to standard error with its place and number, and the exit status is 1.

Example:
  applescript -e 'tell application "Safari" to get URL of every tab of window 1')";

}  // namespace

std::expected<Options, std::string> Options::parse(std::span<const std::string_view> arguments) {
  Options options;
  const auto addLine = [&](std::string_view line) {
    options.script = options.script.value_or("").append(line).append("\n");
    return true;
  };
  const auto setFile = [&](std::string_view file) {
    const bool isFirst = !options.file;
    options.file = file;
    return isFirst;
  };
  auto help =
      DesktopSupport::readOptions("applescript", summary,
                                  {{.name = "line",
                                    .letter = 'e',
                                    .value = "LINE",
                                    .help = "a line of the script; may be repeated",
                                    .take = addLine},
                                   {.name = "version", .help = "show the version", .flag = &options.wantsVersion},
                                   {.value = "[FILE]", .take = setFile}},
                                  arguments);
  if (!help)
    return std::unexpected(help.error());
  if (options.script && options.file)
    return std::unexpected("Give either -e or a file, not both");
  if (options.file == "-")
    options.file.reset();
  options.help = std::move(*help);
  return options;
}

}  // namespace AppleScriptTool
