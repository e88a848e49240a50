#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "AppleScript/Values/SourceForm.h"
#include "Tests/AppleScript/TestApplications.h"

// Each file below SCRIPT_TESTS_DIR is a script that says itself, in comments, what comes of it:
//
//     --> {1, "a"}                        its value as the language writes it; "nothing" where it has none
//     --! -1728 Can’t get window 3.       the error's number and message
//     --@ 4 8                             where in the source the error is: its first character, how many
//     --app Test Desk                     the application that the error names

namespace AppleScript::Testing {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> scriptFiles() {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(SCRIPT_TESTS_DIR))
    if (entry.path().extension() == ".applescript")
      files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

std::string contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// What stands behind the comment mark `mark` in `source`; empty where it does not occur.
std::string expectation(const std::string& source, const std::string& mark) {
  const std::size_t start = source.rfind("\n" + mark + " ");
  if (start == std::string::npos)
    return {};
  const std::size_t text = start + mark.size() + 2;
  return source.substr(text, source.find('\n', text) - text);
}

std::string outcome(const Result<std::optional<Value>>& result) {
  if (!result)
    return "error " + std::to_string(static_cast<int>(result.error().number)) + " " + result.error().message;
  return *result ? sourceForm(**result) : "nothing";
}

class Scripts : public testing::TestWithParam<fs::path> {};

TEST_P(Scripts, YieldWhatTheySay) {
  const std::string source = contents(GetParam());
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
  if (!result && !application.empty()) {
    EXPECT_EQ(result.error().applicationName, application);
  }
}

std::string testName(const testing::TestParamInfo<fs::path>& info) {
  std::string name = info.param.parent_path().filename().string() + "_" + info.param.stem().string();
  std::ranges::replace_if(name, [](unsigned char byte) { return std::isalnum(byte) == 0; }, '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Language, Scripts, testing::ValuesIn(scriptFiles()), testName);

}  // namespace
}  // namespace AppleScript::Testing
