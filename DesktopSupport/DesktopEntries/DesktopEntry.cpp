#include "DesktopSupport/DesktopEntries/DesktopEntry.h"

#include <algorithm>
#include <utility>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/KeyFileGroup.h"

namespace DesktopSupport {

namespace {

// The longest real entries, translated into a hundred languages, have about 100 KB.
constexpr std::size_t maximumEntrySize = 1 << 20;

const DesktopEntry* preferred(const std::vector<const DesktopEntry*>& entries, std::string_view id) {
  const auto rank = [&](const DesktopEntry* entry) { return (entry->id == id ? 2 : 0) + (entry->isShown ? 1 : 0); };
  return *std::ranges::max_element(entries, {}, rank);
}

}  // namespace

std::optional<DesktopEntry> DesktopEntry::read(const std::filesystem::path& file, std::string id) {
  const auto contents = fileContents(file, maximumEntrySize);
  const auto group = contents ? KeyFileGroup::parse(*contents, "Desktop Entry") : std::nullopt;
  if (!group)
    return std::nullopt;
  DesktopEntry entry{.id = std::move(id), .file = file};
  entry.isHidden = group->isTrue("Hidden");
  entry.name = displayableName(group->localizedText("Name").value_or(""));
  const bool isApplication = group->text("Type") == "Application" && !entry.name.empty();
  if (!entry.isHidden && !isApplication)
    return std::nullopt;
  entry.exec = group->text("Exec").value_or("");
  entry.tryExec = group->text("TryExec").value_or("");
  entry.startupClass = group->text("StartupWMClass").value_or("");
  entry.isBusActivatable = group->isTrue("DBusActivatable") && isApplicationName(entry.id);
  entry.isShown = !group->isTrue("NoDisplay");
  return entry;
}

DesktopEntryIndex::DesktopEntryIndex(const std::vector<const DesktopEntry*>& entries) {
  for (const DesktopEntry* entry : entries) {
    if (!entry->startupClass.empty()) {
      byStartupClass_[entry->startupClass].push_back(entry);
      byLowerCaseClass_[lowerCase(entry->startupClass)].push_back(entry);
    }
    addStarts(*entry);
  }
}

void DesktopEntryIndex::addStarts(const DesktopEntry& entry) {
  const auto exec = CommandLine::fromExec(entry.exec);
  if (exec)
    byProgram_[exec->program].push_back({&entry, *exec});
  const auto tryExec = CommandLine::from({entry.tryExec});
  if (!entry.tryExec.empty() && tryExec && (!exec || tryExec->program != exec->program))
    byProgram_[tryExec->program].push_back({&entry, *tryExec});
}

const DesktopEntry* DesktopEntryIndex::withStartupClass(std::string_view windowClass) const {
  const auto found = byStartupClass_.find(std::string(windowClass));
  return found == byStartupClass_.end() ? nullptr : preferred(found->second, windowClass);
}

const DesktopEntry* DesktopEntryIndex::withStartupClassIgnoringCase(std::string_view windowClass) const {
  const auto found = byLowerCaseClass_.find(lowerCase(windowClass));
  return found == byLowerCaseClass_.end() ? nullptr : preferred(found->second, windowClass);
}

const DesktopEntry* DesktopEntryIndex::starting(const CommandLine& command) const {
  const auto found = byProgram_.find(command.program);
  if (found == byProgram_.end())
    return nullptr;
  const Start* best = nullptr;
  const auto rank = [](const Start& start) { return std::pair(start.command.arguments.size(), start.entry->isShown); };
  for (const Start& start : found->second)
    if (command.continues(start.command) && (best == nullptr || rank(start) > rank(*best)))
      best = &start;
  return best == nullptr ? nullptr : best->entry;
}

}  // namespace DesktopSupport
