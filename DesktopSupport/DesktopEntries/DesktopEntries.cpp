#include "DesktopSupport/DesktopEntries/DesktopEntries.h"

#include <algorithm>
#include <set>
#include <system_error>

#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/Paths.h"
#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

constexpr std::string_view extension = ".desktop";

// Ids also come from windows, so they may hold anything.
bool isPossibleID(std::string_view id) {
  constexpr std::size_t longestFileName = 255;
  return !id.empty() && id.size() + extension.size() <= longestFileName && !id.contains('/') && isDisplayable(id);
}

const DesktopEntry* usable(const std::optional<DesktopEntry>& entry) {
  return entry && !entry->isHidden ? &*entry : nullptr;
}

bool isFolder(const path& file) {
  std::error_code ignored;
  return std::filesystem::is_directory(file, ignored);
}

// The id of `file` as an entry of `folder`: its path in there, joined with '-', without ".desktop".
std::string desktopFileID(const path& file, const path& folder) {
  std::string id = file.lexically_relative(folder).replace_extension();
  std::ranges::replace(id, '/', '-');
  return id;
}

// A file that may hold a desktop entry, and the id that it gives the entry.
struct EntryFile {
  path file;
  std::string id;
};

// Collects the ".desktop" files in a folder and its sub-folders in the order of their names, each real folder once,
// whatever links lead to it. Leaves out files whose paths are not one line of text.
class Walk {
 public:
  explicit Walk(path root) : root_(std::move(root)) { visit(root_); }

  std::vector<EntryFile> files;

 private:
  void visit(const path& folder) {
    std::error_code error;
    const path real = std::filesystem::canonical(folder, error);
    if (error || !visited_.insert(real).second)
      return;
    for (const auto& item : sortedItems(folder))
      if (item.path().extension() == ".desktop" && !item.is_directory(error))
        add(item.path());
      else if (item.is_directory(error))
        visit(item.path());
  }

  static std::vector<std::filesystem::directory_entry> sortedItems(const path& folder) {
    std::vector<std::filesystem::directory_entry> items;
    std::error_code error;
    for (std::filesystem::directory_iterator item(folder, error); !error && item != end(item); item.increment(error))
      items.push_back(*item);
    std::ranges::sort(items);
    return items;
  }

  void add(const path& file) {
    if (isDisplayable(file.string()))
      files.push_back({.file = file, .id = desktopFileID(file, root_)});
  }

  path root_;
  std::set<path> visited_;
};

void addApplicationFolder(std::vector<path>& folders, const path& data) {
  const path folder = (data / "applications").lexically_normal();
  if (std::ranges::find(folders, folder) == folders.end())
    folders.push_back(folder);
}

}  // namespace

std::vector<path> applicationFolders() {
  std::vector<path> folders;
  for (const path& data : dataFolders())
    addApplicationFolder(folders, data);
  for (const path& exported : {userDataFolder() / "flatpak/exports/share", path("/var/lib/flatpak/exports/share")})
    addApplicationFolder(folders, exported);
  addApplicationFolder(folders, "/var/lib/snapd/desktop");
  return folders;
}

DesktopEntries::DesktopEntries(std::vector<path> folders) : folders_(std::move(folders)) {}

std::optional<DesktopEntry> DesktopEntries::read(const path& file, std::string id) {
  ++filesRead_;
  return DesktopEntry::read(file, std::move(id));
}

// Each '-' may be a step into a sub-folder.
std::optional<DesktopEntry> DesktopEntries::search(const path& folder, std::string_view rest, const std::string& id) {
  if (auto entry = read(folder / (std::string(rest) + std::string(extension)), id))
    return entry;
  for (auto dash = rest.find('-'); dash != std::string_view::npos; dash = rest.find('-', dash + 1)) {
    const path inner = folder / rest.substr(0, dash);
    if (dash == 0 || rest.starts_with('.') || !isFolder(inner))
      continue;
    if (auto entry = search(inner, rest.substr(dash + 1), id))
      return entry;
  }
  return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::search(const std::string& id) {
  for (const path& folder : folders_)
    if (auto entry = search(folder, id, id))
      return entry;
  return std::nullopt;
}

const DesktopEntry* DesktopEntries::find(std::string_view id) {
  auto found = entries_.find(id);
  if (found == entries_.end()) {
    if (index_ || !isPossibleID(id))
      return nullptr;
    found = entries_.emplace(id, search(std::string(id))).first;
  }
  return usable(found->second);
}

const DesktopEntry* DesktopEntries::findFile(const path& file) {
  if (!file.is_absolute() || file.extension() != extension || !isDisplayable(file.string()))
    return nullptr;
  for (const path& folder : folders_)
    if (isInside(file, folder))
      return find(desktopFileID(file, folder));
  auto found = others_.find(file);
  if (found == others_.end())
    found = others_.emplace(file, read(file, file.stem())).first;
  return usable(found->second);
}

void DesktopEntries::readAll() {
  for (const path& folder : folders_)
    for (const EntryFile& each : Walk(folder).files) {
      auto& entry = entries_[each.id];
      if (!entry)
        entry = read(each.file, each.id);
    }
}

const DesktopEntryIndex& DesktopEntries::index() {
  if (!index_) {
    readAll();
    std::vector<const DesktopEntry*> all;
    for (const auto& [id, entry] : entries_)
      if (const DesktopEntry* each = usable(entry))
        all.push_back(each);
    index_ = std::make_unique<DesktopEntryIndex>(all);
  }
  return *index_;
}

}  // namespace DesktopSupport
