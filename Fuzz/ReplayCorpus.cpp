#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <vector>

// Runs a fuzz target with each file of the folders given, so that old findings are tested with any compiler.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);  // NOLINT(*-identifier-naming)

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
    if (entry.is_regular_file(ignored))
      files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

bool replay(const std::filesystem::path& file) {
  // Without buffering: if an input stops the process, its name is the last line.
  std::fprintf(stderr, "%s\n", file.c_str());
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
  if (!stream.is_open() || stream.bad())
    return false;
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  return LLVMFuzzerTestOneInput(input.data(), input.size()) == 0;
}

bool replayFolder(const std::filesystem::path& folder) {
  const auto files = filesIn(folder);
  if (files.empty())
    std::fprintf(stderr, "There is nothing to replay in %s.\n", folder.c_str());
  return !files.empty() && std::ranges::all_of(files, replay);
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::vector<std::filesystem::path> folders(arguments + 1, arguments + argumentCount);
  if (folders.empty())
    std::fputs("Usage: …Fuzzer FOLDER...\n", stderr);
  return !folders.empty() && std::ranges::all_of(folders, replayFolder) ? 0 : 1;
}
