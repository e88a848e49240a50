#include <cstddef>
#include <expected>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

#include "AppleScriptTool/Options.h"
#include "AppleScriptTool/ScriptRun.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"

namespace {

using AppleScriptTool::Options;

int fail(const std::string& message, int status) {
  std::cerr << "applescript: " << DesktopSupport::printable(message) << '\n';
  return status;
}

// A program that reads the result takes it as it is; a terminal would obey what is in it.
void print(const std::string& result) {
  const bool isOnTerminal = isatty(STDOUT_FILENO) != 0;
  std::cout << (isOnTerminal ? DesktopSupport::printableLines(result) : result) << std::flush;
}

std::expected<std::string, std::string> contents(const std::filesystem::path& file) {
  constexpr std::size_t longestScript = 64UL << 20U;
  auto script = DesktopSupport::fileContents(file, longestScript);
  if (!script)
    return std::unexpected(file.string() + " cannot be read");
  return std::move(*script);
}

std::expected<std::string, std::string> source(const Options& options) {
  if (options.script)
    return *options.script;
  if (options.file)
    return contents(*options.file);
  return std::string(std::istreambuf_iterator(std::cin), {});
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string_view> arguments(argv + 1, argv + argc);
  const auto options = Options::parse(arguments);
  if (!options)
    return fail(options.error() + " (see --help)", 2);
  if (options->wantsHelp || options->wantsVersion) {
    std::cout << (options->wantsHelp ? Options::help : "applescript " DESKLOOM_VERSION "\n");
    return 0;
  }

  const auto script = source(*options);
  if (!script)
    return fail(script.error(), 1);
  const auto result = AppleScriptTool::runScript(*script);
  if (!result)
    return fail(result.error(), 1);
  print(*result);
  return std::cout ? 0 : fail("the result cannot be printed", 1);
}
