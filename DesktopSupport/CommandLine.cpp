#include "DesktopSupport/CommandLine.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>

#include "DesktopSupport/GLibHandles.h"

namespace DesktopSupport {

namespace {

using Words = std::vector<std::string>;

constexpr auto interpreters =
    std::to_array<std::string_view>({"bash",        "cjs",  "dash",   "electron", "fish",           "gjs",
                                     "gjs-console", "java", "ksh",    "lua",      "mono",           "node",
                                     "nodejs",      "perl", "php",    "python",   "ruby",           "sh",
                                     "tclsh",       "wine", "wine64", "wish",     "wine-preloader", "wine64-preloader",
                                     "zsh"});

std::string baseName(const std::string& path) {
  return std::filesystem::path(path).filename();
}

bool isOption(const std::string& word) {
  return word.starts_with('-');
}

bool isAssignment(const std::string& word) {
  return word.contains('=');
}

bool hasFieldCode(const std::string& word) {
  const auto percent = word.find('%');
  return percent != std::string::npos && percent + 1 < word.size() && word[percent + 1] != '%';
}

bool carriesItsProgram(const std::string& option) {
  return option == "-c" || option == "-e";
}

Words::const_iterator skipEnv(Words::const_iterator word, Words::const_iterator end) {
  if (word == end || baseName(*word) != "env")
    return word;
  return std::find_if_not(word + 1, end, [](const auto& each) { return isOption(each) || isAssignment(each); });
}

Words::const_iterator skipInterpreter(Words::const_iterator word, Words::const_iterator end) {
  if (word == end || !isInterpreter(baseName(*word)))
    return word;
  const auto script = std::find_if_not(word + 1, end, isOption);
  return std::any_of(word + 1, script, carriesItsProgram) ? end : script;
}

}  // namespace

std::optional<CommandLine> CommandLine::from(const Words& arguments) {
  const auto program = skipInterpreter(skipEnv(arguments.begin(), arguments.end()), arguments.end());
  if (program == arguments.end())
    return std::nullopt;
  return CommandLine{.program = baseName(*program), .arguments = Words(program + 1, arguments.end())};
}

std::optional<CommandLine> CommandLine::fromExec(const std::string& exec) {
  StringsHandle words;
  int count = 0;
  if (g_shell_parse_argv(exec.c_str(), &count, Out(words), nullptr) == FALSE)
    return std::nullopt;
  Words fixed(words.get(), words.get() + count);
  std::erase_if(fixed, hasFieldCode);
  return from(fixed);
}

bool CommandLine::continues(const CommandLine& other) const {
  return program == other.program && arguments.size() >= other.arguments.size() &&
         std::ranges::equal(other.arguments,
                            std::ranges::subrange(arguments.begin(), arguments.begin() + std::ssize(other.arguments)));
}

bool isInterpreter(std::string_view program) {
  const auto isVersion = [](unsigned char character) { return std::isdigit(character) != 0 || character == '.'; };
  std::string_view unversioned = program;
  while (!unversioned.empty() && isVersion(static_cast<unsigned char>(unversioned.back())))
    unversioned.remove_suffix(1);
  return std::ranges::find(interpreters, program) != interpreters.end() ||
         std::ranges::find(interpreters, unversioned) != interpreters.end();
}

}  // namespace DesktopSupport
