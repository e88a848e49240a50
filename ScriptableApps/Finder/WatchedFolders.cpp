#include "ScriptableApps/Finder/WatchedFolders.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include <sys/sysmacros.h>

#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::parseNumber;
using DesktopSupport::separated;
using std::filesystem::path;

constexpr std::size_t maximumSize = 4 << 20;

// The text after `label` in one of the fields.
std::string_view valueOf(std::string_view label, const std::vector<std::string_view>& fields) {
  for (const std::string_view field : fields)
    if (field.starts_with(label))
      return field.substr(label.size());
  return "";
}

std::optional<FileMark> markIn(std::string_view line) {
  const auto fields = separated(line, ' ');
  const auto inode = parseNumber<ino_t>(valueOf("ino:", fields), 16);
  const auto device = parseNumber<unsigned>(valueOf("sdev:", fields), 16);
  if (!line.starts_with("inotify ") || !inode || !device)
    return std::nullopt;
  FileMark mark{.device = makedev(*device >> 20U, *device & 0xFFFFFU), .inode = *inode};
  const auto type = parseNumber<int>(valueOf("fhandle-type:", fields), 16);
  if (const auto handle = valueOf("f_handle:", fields); type && !handle.empty())
    mark.handle = std::to_string(*type) + ':' + std::string(handle);
  return mark;
}

std::vector<FileMark> marksOf(pid_t process) {
  std::vector<FileMark> marks;
  std::error_code error;
  const path folder = path("/proc") / std::to_string(process);
  for (std::filesystem::directory_iterator files(folder / "fd", error), end; !error && files != end;
       files.increment(error)) {
    std::error_code ignored;
    if (std::filesystem::read_symlink(files->path(), ignored) == "anon_inode:inotify")
      std::ranges::move(
          marksIn(DesktopSupport::fileContents(folder / "fdinfo" / files->path().filename(), maximumSize).value_or("")),
          std::back_inserter(marks));
  }
  std::ranges::sort(marks);
  const auto repeated = std::ranges::unique(marks);
  marks.erase(repeated.begin(), repeated.end());
  return marks;
}

// The folders that the addresses in a file name, as in a list of bookmarks or of files used recently.
void addAddressesIn(const path& file, std::vector<path>& folders) {
  constexpr std::string_view start = "file:///";
  constexpr std::string_view ends = "\"'< \t\r\n";
  const std::string contents = DesktopSupport::fileContents(file, maximumSize).value_or("");
  std::string_view rest = contents;
  for (auto begin = rest.find(start); begin != std::string_view::npos; begin = rest.find(start)) {
    rest.remove_prefix(begin);
    const std::string uri(rest.substr(0, rest.find_first_of(ends)));
    rest.remove_prefix(uri.size());
    const DesktopSupport::CharsHandle place(g_filename_from_uri(uri.c_str(), nullptr, nullptr));
    if (place)
      folders.emplace_back(place.get());
  }
}

// Where the user goes, and what programs watch without showing it.
SearchPlaces placesFor(const std::vector<pid_t>& processes) {
  const path home = DesktopSupport::homeFolder();
  std::vector<path> likely = {home, DesktopSupport::userConfigurationFolder(), DesktopSupport::userDataFolder(),
                              DesktopSupport::folderNamedBy("XDG_CACHE_HOME").value_or(home / ".cache")};
  for (const pid_t process : processes)
    for (const std::string& argument : DesktopSupport::ProcessInfo(process).arguments())
      if (argument.starts_with('/'))
        likely.emplace_back(argument);
  addAddressesIn(DesktopSupport::userConfigurationFolder() / "gtk-3.0/bookmarks", likely);
  addAddressesIn(DesktopSupport::userDataFolder() / "user-places.xbel", likely);
  addAddressesIn(DesktopSupport::userDataFolder() / "recently-used.xbel", likely);
  std::vector<path> lessLikely = DesktopSupport::configurationFolders();
  std::ranges::move(DesktopSupport::dataFolders(), std::back_inserter(lessLikely));
  return {.likely = std::move(likely), .lessLikely = std::move(lessLikely)};
}

}  // namespace

std::vector<FileMark> marksIn(std::string_view fileInformation) {
  std::vector<FileMark> marks;
  for (const std::string_view line : separated(fileInformation, '\n'))
    if (auto mark = markIn(line))
      marks.push_back(std::move(*mark));
  return marks;
}

const ProcessFolders& WatchedFolders::of(pid_t process) {
  if (!folders_.contains(process)) {
    expected_.push_back(process);
    search();
  }
  return folders_[process];
}

void WatchedFolders::search() {
  std::vector<FileMark> marks;
  std::vector<pid_t> owners;
  for (const pid_t process : expected_) {
    if (folders_.contains(process))
      continue;
    auto its = marksOf(process);
    folders_[process].areAll = !its.empty();
    owners.resize(owners.size() + its.size(), process);
    std::ranges::move(its, std::back_inserter(marks));
  }
  const auto found = pathsWith(marks, placesFor(expected_), searchTime_);
  for (std::size_t index = 0; index < found.size(); ++index)
    if (const auto& folder = found[index])
      folders_[owners[index]].folders.push_back(*folder);
    else
      folders_[owners[index]].areAll = false;
  expected_.clear();
}

}  // namespace ScriptableApps
