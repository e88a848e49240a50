#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Values/SourceForm.h"
#include "Tests/AppleScript/TestApplications.h"

// Scripts/Operators.applescript is a table of scripts. Each begins with a line that names it and ends at an empty line
// or at the end of the file. A script that has empty lines itself is a file of its own:
// Scripts/Layout/EmptyLinesAndBlanks.applescript. Each script says in comments at its end what comes of it:
//
//     --> {1, "a"}                        its value as the language writes it; "nothing" if it has none
//     --! -1728 Can’t get window 3.       the error's number and message
//     --@ 4 8                             where in the source the error is: its offset and length in characters
//     --app Test Desk                     the application that the error names

namespace AppleScript::Testing {
namespace {

namespace fs = std::filesystem;

struct Script {
  std::string name;
  std::string source;
};

/// What a test listing shows of a script.
void PrintTo(const Script& script, std::ostream* stream) {
  *stream << script.name;
}

std::string contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The row of a table whose name and source are `text`.
Script row(const std::string& table, const std::string& text) {
  const std::size_t end = text.find('\n');
  if (!text.starts_with("-- ") || end == std::string::npos)
    throw std::invalid_argument("a row of " + table + " must begin with its name: " + text);
  return {.name = table + "_" + text.substr(3, end - 3), .source = text.substr(end + 1)};
}

std::vector<Script> rows(const fs::path& file) {
  std::vector<Script> rows;
  const std::string text = contents(file);
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find("\n\n", start), text.size() - 1) + 1;
    rows.push_back(row(file.stem().string(), text.substr(start, end - start)));
    start = end + 1;
  }
  return rows;
}

std::vector<Script> scripts() {
  std::vector<Script> scripts;
  for (const auto& entry : fs::directory_iterator(SCRIPT_TESTS_DIR)) {
    if (!entry.is_directory()) {
      std::ranges::move(rows(entry.path()), std::back_inserter(scripts));
      continue;
    }
    for (const auto& file : fs::directory_iterator(entry.path()))
      scripts.push_back({.name = entry.path().filename().string() + "_" + file.path().stem().string(),
                         .source = contents(file.path())});
  }
  std::ranges::sort(scripts, {}, &Script::name);
  return scripts;
}

/// The text after the comment mark `mark`, which may occur once in `source`, or "" if it doesn't occur.
std::string expectation(const std::string& source, const std::string& mark) {
  const std::string line = "\n" + mark + " ";
  const std::size_t start = source.find(line);
  EXPECT_EQ(source.rfind(line), start) << "an expectation occurs twice";
  if (start == std::string::npos)
    return {};
  const std::size_t text = start + line.size();
  return source.substr(text, source.find('\n', text) - text);
}

std::string outcome(const Result<std::optional<Value>>& result) {
  if (!result)
    return "error " + std::to_string(static_cast<int>(result.error().number)) + " " + result.error().message;
  return *result ? sourceForm(**result) : "nothing";
}

class Scripts : public testing::TestWithParam<Script> {};

TEST_P(Scripts, YieldWhatTheySay) {
  const std::string& source = GetParam().source;
  const std::string value = expectation(source, "-->");
  const std::string error = expectation(source, "--!");
  ASSERT_NE(value.empty(), error.empty()) << "a script says either its value or its error";

  TestApplications applications;
  const auto result = applications.run(source);
  EXPECT_EQ(outcome(result), value.empty() ? "error " + error : value);

  const std::string place = expectation(source, "--@");
  if (!result && !place.empty()) {
    const SourceRange range = result.error().range;
    EXPECT_EQ(std::to_string(range.start) + " " + std::to_string(range.length), place);
  }
  const std::string application = expectation(source, "--app");
  if (!result && !application.empty())
    EXPECT_EQ(result.error().applicationName, application);
}

INSTANTIATE_TEST_SUITE_P(Language, Scripts, testing::ValuesIn(scripts()),
                         [](const auto& script) { return script.param.name; });

}  // namespace
}  // namespace AppleScript::Testing
