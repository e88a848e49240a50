#include "DesktopSupport/DesktopEntries/DesktopEntries.h"

#include <algorithm>

#include "DesktopSupport/DesktopEntries/DesktopEntryFiles.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

constexpr std::string_view extension = ".desktop";

// Ids come from windows, too, so they may hold anything.
bool isPossibleId(std::string_view id) {
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

bool isInside(const path& file, const path& folder) {
  return std::ranges::mismatch(folder, file).in1 == folder.end();
}

}  // namespace

DesktopEntries::DesktopEntries(std::vector<path> folders) : folders_(std::move(folders)) {}

std::optional<DesktopEntry> DesktopEntries::read(const path& file, std::string id) {
  ++filesRead_;
  return DesktopEntry::read(file, std::move(id));
}

// Each '-' may stand for a step into a sub-folder.
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
    if (index_ || !isPossibleId(id))
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
      return find(desktopFileId(file, folder));
  auto found = others_.find(file);
  if (found == others_.end())
    found = others_.emplace(file, read(file, file.stem())).first;
  return usable(found->second);
}

void DesktopEntries::readAll() {
  for (const path& folder : folders_)
    for (DesktopEntryFile& each : desktopEntryFiles(folder)) {
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
