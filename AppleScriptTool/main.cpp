#include <cstddef>
#include <expected>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

#include "AppleScript/Script.h"
#include "AppleScript/Values/SourceForm.h"
#include "AppleScriptTool/Options.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "Platform/Text/UTF8.h"
#include "ScriptableApps/ScriptableApplications.h"

namespace {

using AppleScript::Value;
using AppleScriptTool::Options;

int fail(const std::string& message, int status) {
  std::cerr << "applescript: " << DesktopSupport::printable(message) << '\n';
  return status;
}

// An error with its range, in characters from the start of the script: "12:17: execution error: Can’t get tab 3.
// (-1728)".
std::string report(const AppleScript::ScriptError& error, const char* kind) {
  const std::string range =
      std::to_string(error.range.start) + ':' + std::to_string(error.range.start + error.range.length);
  return range + ": " + kind + ": " + error.message + " (" + std::to_string(static_cast<int>(error.number)) + ')';
}

std::string line(const Value& value) {
  const auto* text = value.getIf<AppleScript::Text>();
  return (text != nullptr ? value.stringValue().value_or("") : sourceForm(value)) + '\n';
}

// What the script yields, as a line for the user; empty if it yields nothing. Fails with the error for the user.
std::expected<std::string, std::string> runScript(const std::string& source) {
  if (!Platform::utf8Bytes(source))
    return std::unexpected("the script is not UTF-8");
  ScriptableApps::ScriptableApplications applications;
  const auto script = AppleScript::Script::compile(source, applications);
  if (!script)
    return std::unexpected(report(script.error(), "syntax error"));
  const auto result = script->run();
  if (!result)
    return std::unexpected(report(result.error(), "execution error"));
  const std::optional<Value>& value = *result;
  return value ? line(*value) : std::string();
}

// A terminal would obey control characters in the result. A program that reads it gets it unchanged.
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
  if (options->help || options->wantsVersion) {
    std::cout << options->help.value_or("applescript " DESKLOOM_VERSION "\n");
    return 0;
  }

  const auto script = source(*options);
  if (!script)
    return fail(script.error(), 1);
  const auto result = runScript(*script);
  if (!result)
    return fail(result.error(), 1);
  print(*result);
  return std::cout ? 0 : fail("the result cannot be printed", 1);
}
