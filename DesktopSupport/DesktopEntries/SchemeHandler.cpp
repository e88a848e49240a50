#include "DesktopSupport/DesktopEntries/SchemeHandler.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/KeyFileGroup.h"
#include "DesktopSupport/System/Text.h"
#include "DesktopSupport/System/UserFolders.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

constexpr std::size_t maximumFileSize = 4 << 20;

/// The files in which one folder says which applications open what.
struct Associations {
  /// The lists for the current desktops, then the general list.
  std::vector<path> lists;
  /// What the applications in the folder offer to open.
  std::optional<path> cache = {};
};

std::vector<path> listsIn(const path& folder) {
  std::vector<path> lists;
  const char* desktops = std::getenv("XDG_CURRENT_DESKTOP");
  for (const std::string_view desktop : separated(desktops == nullptr ? "" : desktops, ':'))
    lists.push_back(folder / (lowerCase(desktop) + "-mimeapps.list"));
  lists.push_back(folder / "mimeapps.list");
  return lists;
}

std::vector<Associations> associations() {
  std::vector<Associations> all;
  for (const path& folder : configurationFolders())
    all.push_back({listsIn(folder)});
  for (const path& folder : applicationFolders())
    all.push_back({listsIn(folder), folder / "mimeinfo.cache"});
  return all;
}

/// The desktop file ids, without ".desktop", for a MIME type in a group of a file.
std::vector<std::string> idsFor(const std::string& type, const path& file, std::string_view group) {
  constexpr std::string_view extension = ".desktop";
  const auto contents = fileContents(file, maximumFileSize);
  const auto values = contents ? KeyFileGroup::parse(*contents, group) : std::nullopt;
  const std::string list = values ? values->text(type).value_or("") : "";
  std::vector<std::string> ids;
  for (const std::string_view id : separated(list, ';'))
    if (id.ends_with(extension))
      ids.emplace_back(id.substr(0, id.size() - extension.size()));
  return ids;
}

const DesktopEntry* chosen(const std::string& type, const std::vector<Associations>& all, DesktopEntries& entries) {
  for (const Associations& each : all)
    for (const path& list : each.lists)
      for (const std::string& id : idsFor(type, list, "Default Applications"))
        if (const DesktopEntry* entry = entries.find(id))
          return entry;
  return nullptr;
}

const DesktopEntry* offered(const std::string& type, const std::vector<Associations>& all, DesktopEntries& entries) {
  std::set<std::string> removed;
  const auto firstOf = [&](const std::vector<std::string>& ids) -> const DesktopEntry* {
    for (const std::string& id : ids)
      if (const DesktopEntry* entry = removed.contains(id) ? nullptr : entries.find(id))
        return entry;
    return nullptr;
  };
  for (const Associations& each : all) {
    // The desktops' own lists hold only defaults.
    if (const auto* entry = firstOf(idsFor(type, each.lists.back(), "Added Associations")))
      return entry;
    removed.merge([&] {
      const auto ids = idsFor(type, each.lists.back(), "Removed Associations");
      return std::set<std::string>(ids.begin(), ids.end());
    }());
    if (const auto* entry = each.cache ? firstOf(idsFor(type, *each.cache, "MIME Cache")) : nullptr)
      return entry;
  }
  return nullptr;
}

}  // namespace

const DesktopEntry* handlerOfScheme(std::string_view scheme, DesktopEntries& entries) {
  const std::string type = "x-scheme-handler/" + lowerCase(scheme);
  const auto all = associations();
  if (const auto* entry = chosen(type, all, entries))
    return entry;
  return offered(type, all, entries);
}

}  // namespace DesktopSupport
