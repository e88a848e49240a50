#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace DesktopSupport {

/// An option of a program, or all arguments that are not options.
struct ProgramOption {
  /// "log" for --log; "" for the arguments that are not options.
  const char* name = "";
  /// 'e' for -e; 0 if there is no short form.
  char letter = '\0';
  /// What the help text calls the value, such as "FILE".
  const char* value = nullptr;
  /// What the help text says about the option.
  const char* help = nullptr;
  /// For an option without a value: becomes true if the option is given.
  bool* flag = nullptr;
  /// For the others: called with each value given, in order. False if the value is invalid.
  std::function<bool(std::string_view value)> take = {};
};

/// Reads a program's command line with GLib's parser, which takes options and other arguments in any order and no
/// options after "--". --help is an option of every program: yields the help text if it is given, with `summary` as its
/// first paragraph. Fails with a sentence for the user. `arguments` are those after the program's name.
std::expected<std::optional<std::string>, std::string> readOptions(const std::string& program, const char* summary,
                                                                   std::vector<ProgramOption> options,
                                                                   std::span<const std::string_view> arguments);

}  // namespace DesktopSupport
