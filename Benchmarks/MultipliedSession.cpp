// Makes a session log and a history with any number of tabs from the profile of a Chromium that has been used.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "Benchmarks/CopiedSession.h"
#include "Benchmarks/PageHistory.h"
#include "BrowserSessions/Chromium/SessionFiles.h"

namespace {

using std::filesystem::path;

std::string readAll(const path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "Usage: %s PROFILE TABS NEW-PROFILE\n", argv[0]);
    return 2;
  }
  const path profile = argv[1];
  const path made = argv[3];
  const path file = BrowserSessions::sessionFiles(profile / "Sessions").at(0).path;
  const Benchmarks::CopiedSession session(readAll(file));
  const auto tabs = static_cast<std::size_t>(std::atoi(argv[2]));

  std::filesystem::create_directories(made / "Sessions");
  std::filesystem::copy_file(profile / "History", made / "History");
  const Benchmarks::PageHistory history(made / "History", static_cast<int>(session.copiesFor(tabs)) - 1);
  std::ofstream(made / "Sessions" / file.filename(), std::ios::binary) << session.log(tabs, history.titles());
}
