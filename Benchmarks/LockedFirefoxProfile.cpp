// Makes a Firefox profile whose session store holds the JSON text of a file, and locks it as a running Firefox does.
// Prints a line when that is done, and keeps the lock until it is terminated.

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

#include "Tests/BrowserSessions/LockedProfile.h"
#include "Tests/BrowserSessions/MozillaLZ4File.h"

namespace {

void writeSession(const char* json, const std::filesystem::path& profile) {
  std::ifstream stream(json, std::ios::binary);
  const std::string text(std::istreambuf_iterator<char>(stream), {});
  std::filesystem::create_directories(profile / "sessionstore-backups");
  const std::filesystem::path file = profile / "sessionstore-backups/recovery.jsonlz4";
  std::ofstream(file, std::ios::binary) << BrowserSessions::Testing::mozillaLZ4File(text);
  // A file as old as the lock would count as left by an earlier run.
  std::filesystem::last_write_time(file, std::filesystem::last_write_time(file) + std::chrono::seconds(1));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "Usage: %s JSON PROFILE\n", argv[0]);
    return 2;
  }
  try {
    const BrowserSessions::Testing::LockedProfile lock(argv[2]);
    writeSession(argv[1], argv[2]);
    std::puts("locked");
    std::fflush(stdout);
    pause();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "failed: %s\n", failure.what());
    return 1;
  }
}
