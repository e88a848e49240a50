#include "DesktopSupport/DesktopEntries/DesktopEntry.h"

#include "DesktopSupport/Bus/ApplicationBus.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/KeyFileGroup.h"

namespace DesktopSupport {

namespace {

// The longest real entries, translated into a hundred languages, have some 100 KB.
constexpr std::size_t maximumEntrySize = 1 << 20;

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

}  // namespace DesktopSupport
