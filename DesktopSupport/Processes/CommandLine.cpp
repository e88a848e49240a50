#include "DesktopSupport/Processes/CommandLine.h"

#include <algorithm>
#include <array>

#include "DesktopSupport/System/GLibHandles.h"

namespace DesktopSupport {

namespace {

using Words = std::vector<std::string>;

struct Interpreter {
  std::string_view name;
  // Its one-letter options that take the next word as an argument, as the program itself, or as a module's name.
  std::string_view argumentOptions = "";
  std::string_view codeOptions = "";
  std::string_view moduleOptions = "";
};

// With -s, a shell reads its program from standard input.
constexpr auto interpreters = std::to_array<Interpreter>({
    {"bash", "oO", "cs"},
    {"cjs", "CI", "c"},
    {"dash", "o", "cs"},
    {"electron", "r"},
    {"fish", "CDdfop", "c"},
    {"gjs", "CI", "c"},
    {"gjs-console", "CI", "c"},
    {"java"},
    {"ksh", "o", "cs"},
    {"lua", "l", "e"},
    {"mono"},
    {"node", "Cr", "ep"},
    {"nodejs", "Cr", "ep"},
    {"perl", "IMm", "eE"},
    {"php", "cdz", "BERr"},
    {"python", "WX", "c", "m"},
    {"ruby", "CEIr", "e"},
    {"sh", "o", "cs"},
    {"tclsh"},
    {"wine"},
    {"wine64"},
    {"wish"},
    {"wine-preloader"},
    {"wine64-preloader"},
    {"zsh", "o", "cs"},
});

// The interpreter with this base name, whatever its version; null if there is none.
const Interpreter* interpreterCalled(std::string_view program) {
  const auto* exact = std::ranges::find(interpreters, program, &Interpreter::name);
  if (exact != interpreters.end())
    return exact;
  const auto end = program.find_last_not_of("0123456789.");
  const auto unversioned = program.substr(0, end == std::string_view::npos ? 0 : end + 1);
  const auto* found = std::ranges::find(interpreters, unversioned, &Interpreter::name);
  return found == interpreters.end() ? nullptr : found;
}

std::string baseName(const std::string& path) {
  // A path object takes a hundred times the text's memory, and a process may have megabytes of arguments.
  return path.substr(path.rfind('/') + 1);
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

Words::const_iterator skipEnv(Words::const_iterator word, Words::const_iterator end) {
  if (word == end || baseName(*word) != "env")
    return word;
  return std::find_if_not(word + 1, end, [](const auto& each) { return isOption(each) || isAssignment(each); });
}

// What the word after an interpreter's option is.
enum class NextWord { unrelated, argument, code, module };

// One-letter options may share a dash, and the argument of the last may be in the same word: "-uWignore".
NextWord wordAfter(const std::string& option, const Interpreter& interpreter) {
  if (option == "-")
    return NextWord::code;
  if (option.starts_with("--"))
    return NextWord::unrelated;
  for (std::size_t place = 1; place < option.size(); ++place) {
    const bool isLast = place + 1 == option.size();
    if (interpreter.codeOptions.contains(option[place]))
      return NextWord::code;
    if (interpreter.moduleOptions.contains(option[place]))
      return isLast ? NextWord::module : NextWord::code;
    if (interpreter.argumentOptions.contains(option[place]))
      return isLast ? NextWord::argument : NextWord::unrelated;
  }
  return NextWord::unrelated;
}

// What an interpreter runs: the word that names it.
struct Started {
  Words::const_iterator word;
  bool isModule = false;
};

std::optional<Started> startedBy(const Interpreter& interpreter, Words::const_iterator word,
                                 Words::const_iterator end) {
  for (NextWord next = NextWord::unrelated; word != end; ++word) {
    if (next == NextWord::module || (next == NextWord::unrelated && !isOption(*word)))
      return Started{word, next == NextWord::module};
    next = next == NextWord::argument ? NextWord::unrelated : wordAfter(*word, interpreter);
    if (next == NextWord::code)
      break;
  }
  return std::nullopt;
}

Words::const_iterator skipInterpreter(Words::const_iterator word, Words::const_iterator end) {
  const Interpreter* interpreter = word == end ? nullptr : interpreterCalled(baseName(*word));
  if (interpreter == nullptr)
    return word;
  const auto started = startedBy(*interpreter, word + 1, end);
  return started ? started->word : end;
}

}  // namespace

std::optional<CommandLine> CommandLine::from(const Words& arguments) {
  const auto program = skipInterpreter(skipEnv(arguments.begin(), arguments.end()), arguments.end());
  if (program == arguments.end())
    return std::nullopt;
  return CommandLine{.program = baseName(*program), .arguments = Words(program + 1, arguments.end()), .path = *program};
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
  return interpreterCalled(program) != nullptr;
}

std::optional<std::string> scriptOf(std::string_view program, const Words& arguments) {
  const Interpreter* interpreter = interpreterCalled(program);
  if (interpreter == nullptr || arguments.empty())
    return std::nullopt;
  const auto started = startedBy(*interpreter, arguments.begin() + 1, arguments.end());
  return started && !started->isModule ? std::optional(*started->word) : std::nullopt;
}

}  // namespace DesktopSupport
