#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "BrowserSessions/Chromium/TitleHistory.h"
#include "DesktopSupport/System/FileContents.h"
#include "Fuzz/Target.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

constexpr std::array pages = {"https://a.example/", "https://b.example/", ""};

// A megabyte of which each byte is invalid UTF-8 and becomes U+FFFD.
constexpr std::size_t longestTitle = 3 << 20;

void requireTitles(const std::filesystem::path& profile) {
  BrowserSessions::TitleHistory history(profile);
  for (const char* page : pages) {
    const std::string title = history.titleOf(page);
    Fuzz::requireUTF8(title);
    Fuzz::require(!title.contains('\0'), "A title has no NUL.");
    Fuzz::require(title.size() <= longestTitle, "A title has a bounded length.");
    Fuzz::require(history.titleOf(page) == title, "A page keeps its title.");
  }
}

void requireUntouched(const std::filesystem::path& profile, std::string_view database) {
  Fuzz::require(DesktopSupport::fileContents(profile / "History", database.size()) == database,
                "The database is not changed.");
  Fuzz::require(std::distance(std::filesystem::directory_iterator(profile), {}) == 1, "No file is made beside it.");
}

}  // namespace

// The input is the History database of a Chromium profile.
void Fuzz::run(std::string_view input) {
  static const TestSupport::TemporaryFolder profile;
  profile.write("History", input);
  requireTitles(profile.path());
  requireUntouched(profile.path(), input);
}
