#include "DesktopSupport/DesktopEntries/DesktopEntry.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <utility>

#include <glib.h>

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/GLibHandles.h"
#include "DesktopSupport/System/KeyFileGroup.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/TimeLimit.h"

namespace DesktopSupport {

namespace {

// The longest real entries, translated into a hundred languages, have about 100 KB.
constexpr std::size_t maximumEntrySize = 1 << 20;

using Entries = std::vector<const DesktopEntry*>;
using std::filesystem::path;

const DesktopEntry* preferred(const Entries& entries, std::string_view id) {
  const auto rank = [&](const DesktopEntry* entry) { return (entry->id == id ? 2 : 0) + (entry->isShown ? 1 : 0); };
  return *std::ranges::max_element(entries, {}, rank);
}

Entries selected(const Entries& entries, const std::function<bool(const DesktopEntry&)>& isMeant) {
  Entries found;
  std::ranges::copy_if(entries, std::back_inserter(found), [&](const auto* entry) { return isMeant(*entry); });
  return found;
}

// Ids consist of ASCII characters.
bool areEqualIgnoringCase(std::string_view one, std::string_view other) {
  return one.size() == other.size() && g_ascii_strncasecmp(one.data(), other.data(), one.size()) == 0;
}

bool hadName(const DesktopEntry& entry, std::string_view name) {
  const std::string file = std::string(name) + ".desktop";
  const auto names = separated(entry.formerNames, ';');
  return std::ranges::find(names, file) != names.end();
}

// Whether `word`, the program of a command line, is the program in `file`, a path without links.
bool isProgram(const std::string& word, const path& file) {
  if (word.empty() || path(word).filename() != file.filename())
    return false;
  if (path(word).lexically_normal() == file)
    return true;
  const auto found = foundWithin(fileSystemTime, [&word] {
    const CharsHandle inPath(g_find_program_in_path(word.c_str()));
    const path program = inPath ? inPath.get() : word;
    std::error_code error;
    return program.is_absolute() ? std::filesystem::canonical(program, error).string() : "";
  });
  return found == file.string();
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
  if (group->hasKeyStarting("X-Flatpak") || group->hasKeyStarting("X-Snap")) {
    entry.flatpak = group->text("X-Flatpak").value_or("");
    entry.formerNames = group->text("X-Flatpak-RenamedFrom").value_or("");
    entry.snap = group->text("X-SnapInstanceName").value_or("");
    entry.snapApplication = group->text("X-SnapAppName").value_or("");
  }
  entry.isBusActivatable = group->isTrue("DBusActivatable") && isApplicationName(entry.id);
  entry.isShown = !group->isTrue("NoDisplay");
  return entry;
}

DesktopEntryIndex::DesktopEntryIndex(const std::vector<const DesktopEntry*>& entries) : entries_(entries) {
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

Entries DesktopEntryIndex::ofFlatpak(std::string_view application) const {
  return selected(entries_, [&](const DesktopEntry& entry) { return entry.flatpak == application; });
}

Entries DesktopEntryIndex::ofSnap(std::string_view name) const {
  return selected(entries_, [&](const DesktopEntry& entry) { return entry.snap == name; });
}

const DesktopEntry* DesktopEntryIndex::alsoCalled(std::string_view name) const {
  if (name.empty())
    return nullptr;
  const std::string inSnap = std::string(name) + '_' + std::string(name);
  const auto isMeant = std::to_array<std::function<bool(const DesktopEntry&)>>(
      {[&](const DesktopEntry& entry) { return areEqualIgnoringCase(entry.id, name); },
       [&](const DesktopEntry& entry) { return entry.flatpak == name; },
       [&](const DesktopEntry& entry) {
         return entry.id == inSnap || (entry.snap == name && entry.snapApplication == name);
       },
       [&](const DesktopEntry& entry) { return hadName(entry, name); }});
  for (const auto& each : isMeant)
    if (const Entries found = selected(entries_, each); !found.empty())
      return preferred(found, name);
  return nullptr;
}

const DesktopEntry* DesktopEntryIndex::endingWith(std::string_view name) const {
  const auto endsWithName = [&](const DesktopEntry& entry) {
    const std::string_view id = entry.id;
    if (!entry.isShown || id.size() <= name.size() + 1)
      return false;
    const std::string_view start = id.substr(0, id.size() - name.size());
    return start.ends_with('.') && std::ranges::count(start, '.') > 1 &&
           areEqualIgnoringCase(id.substr(start.size()), name);
  };
  const Entries found = name.empty() ? Entries() : selected(entries_, endsWithName);
  return found.size() == 1 ? found.front() : nullptr;
}

Entries DesktopEntryIndex::running(const path& program) const {
  const auto known = byProgram_.find(program.filename().string());
  Entries found;
  if (known != byProgram_.end())
    for (const Start& start : known->second)
      if (isProgram(start.command.path, program) || isProgram(start.entry->tryExec, program))
        found.push_back(start.entry);
  return found;
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
