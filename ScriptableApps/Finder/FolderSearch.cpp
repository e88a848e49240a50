#include "ScriptableApps/Finder/FolderSearch.h"

#include <array>
#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <new>
#include <set>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/TimeLimit.h"
#include "ScriptableApps/Finder/Mounts.h"

namespace ScriptableApps {

namespace {

using std::filesystem::path;
using Clock = std::chrono::steady_clock;

std::string handleOf(const path& file) {
  constexpr std::string_view digits = "0123456789abcdef";
  // The structure is followed by the handle's bytes.
  alignas(file_handle) std::array<std::byte, sizeof(file_handle) + MAX_HANDLE_SZ> memory = {};
  auto* const handle = new (memory.data()) file_handle;
  handle->handle_bytes = MAX_HANDLE_SZ;
  int mount = 0;
  if (name_to_handle_at(AT_FDCWD, file.c_str(), handle, &mount, 0) != 0)
    return "";
  std::string text = std::to_string(handle->handle_type) + ':';
  for (const std::byte byte : std::span(memory).subspan(sizeof(file_handle), handle->handle_bytes)) {
    text += digits[std::to_integer<std::size_t>(byte >> 4)];
    text += digits[std::to_integer<std::size_t>(byte & std::byte{15})];
  }
  return text;
}

// How far a folder is from where the search begins, in levels. Those with a lower number are looked into first.
constexpr int likely = 0;
constexpr int aboveALikelyOne = 2;
constexpr int lessLikely = 2;
constexpr int mountPoint = 3;
constexpr int furtherIfHidden = 2;

class FolderSearch {
 public:
  FolderSearch(const std::vector<FileMark>& marks, std::chrono::milliseconds limit)
      : marks_(marks), found_(marks.size()), left_(marks.size()), deadline_(Clock::now() + limit) {
    for (const FileMark& mark : marks) {
      devices_.insert(mark.device);
      inodes_.insert(mark.inode);
    }
  }

  void start(const SearchPlaces& places) {
    for (const path& folder : places.likely)
      begin(folder, likely);
    for (const path& folder : places.lessLikely)
      begin(folder, lessLikely);
    for (const path& folder : places.likely)
      for (path above = folder.parent_path(); above != above.parent_path(); above = above.parent_path())
        begin(above, aboveALikelyOne);
    for (const auto& [folder, device] : mounts_.devices())
      begin(folder, mountPoint);
  }

  void run() {
    while (left_ > 0 && Clock::now() < deadline_ && !open_.empty()) {
      const auto nearest = open_.begin();
      const int distance = nearest->first;
      const path folder = std::move(nearest->second.front());
      nearest->second.pop_front();
      if (nearest->second.empty())
        open_.erase(nearest);
      lookInto(folder, distance + 1);
    }
  }

  // The index and the path of each mark found, each followed by a NUL.
  [[nodiscard]] std::string result() const {
    std::string text;
    for (std::size_t index = 0; index < found_.size(); ++index)
      if (const auto& folder = found_[index])
        text += std::to_string(index) + '\0' + folder->string() + '\0';
    return text;
  }

 private:
  void begin(const path& folder, int distance) {
    const dev_t device = mounts_.deviceOf(folder);
    struct stat status = {};
    if (!devices_.contains(device) || stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
      return;
    compare(folder, device, status.st_ino);
    lookLater(folder, distance);
  }

  void lookLater(const path& folder, int distance) {
    if (seen_.insert(folder.string()).second)
      open_[distance].push_back(folder);
  }

  void lookInto(const path& folder, int distance) {
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(folder.c_str()), closedir);
    if (!listing)
      return;
    const dev_t device = mounts_.deviceOf(folder);
    while (const dirent* entry = readdir(listing.get())) {
      const std::string_view name = static_cast<const char*>(entry->d_name);
      const path below = folder / name;
      // The entry of a mount point is that of the folder beneath it.
      if (name == "." || name == ".." || mounts_.devices().contains(below))
        continue;
      compare(below, device, entry->d_ino);
      if (entry->d_type == DT_DIR)
        lookLater(below, name.starts_with('.') ? distance + furtherIfHidden : distance);
    }
  }

  void compare(const path& file, dev_t device, ino_t inode) {
    if (!inodes_.contains(inode))
      return;
    for (std::size_t index = 0; index < marks_.size(); ++index)
      if (!found_[index] && marks_[index].device == device && marks_[index].inode == inode &&
          (marks_[index].handle.empty() || marks_[index].handle == handleOf(file))) {
        found_[index] = file;
        --left_;
      }
  }

  const std::vector<FileMark>& marks_;
  std::vector<std::optional<path>> found_;
  std::size_t left_;
  Clock::time_point deadline_;
  Mounts mounts_;
  std::set<dev_t> devices_;
  std::unordered_set<ino_t> inodes_;
  std::unordered_set<std::string> seen_;
  // The folders that have not been looked into, by their distance.
  std::map<int, std::deque<path>> open_;
};

}  // namespace

std::vector<std::optional<path>> pathsWith(const std::vector<FileMark>& marks, const SearchPlaces& places,
                                           std::chrono::milliseconds limit) {
  std::vector<std::optional<path>> paths(marks.size());
  const auto found =
      marks.empty() ? std::nullopt : DesktopSupport::foundWithin(limit + DesktopSupport::fileSystemTime, [&] {
        FolderSearch search(marks, limit);
        search.start(places);
        search.run();
        return search.result();
      });
  const auto texts = DesktopSupport::separated(found ? std::string_view(*found) : "", '\0');
  for (std::size_t index = 0; index + 1 < texts.size(); index += 2)
    if (const auto mark = DesktopSupport::parseNumber<std::size_t>(texts[index]); mark && *mark < paths.size())
      paths[*mark] = texts[index + 1];
  return paths;
}

}  // namespace ScriptableApps
