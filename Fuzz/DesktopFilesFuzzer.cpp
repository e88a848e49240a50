#include <algorithm>
#include <cstdlib>
#include <string>

#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/DesktopEntries/SchemeHandler.h"
#include "DesktopSupport/Processes/CommandLine.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "Fuzz/Target.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::DesktopEntry;
using Fuzz::require;

/// A user's folders with one application; no other is installed.
class Folders {
 public:
  Folders() {
    setenv("HOME", folder_.path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder_.path() / "config").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (folder_.path() / "none").c_str(), 1);
    setenv("XDG_DATA_HOME", (folder_.path() / "data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (folder_.path() / "none").c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "One", 1);
    setenv("LANGUAGE", "de", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
  }

  void write(std::string_view entry, std::string_view list) const {
    folder_.write("data/applications/a.desktop", entry);
    folder_.write("data/applications/mimeinfo.cache", list);
    folder_.write("config/mimeapps.list", list);
  }

 private:
  TestSupport::TemporaryFolder folder_;
};

void requireSound(const DesktopEntry& entry) {
  require(!entry.isHidden && entry.id == "a", "The entry found is the one that was written.");
  require(!entry.name.empty() && DesktopSupport::isDisplayable(entry.name), "An application has a name in one line.");
  for (const std::string& text : {entry.exec, entry.tryExec, entry.startupClass})
    Fuzz::requireUTF8(text);
}

void requireFound(DesktopSupport::DesktopEntries& entries, const DesktopEntry& entry) {
  const auto& index = entries.index();
  if (!entry.startupClass.empty()) {
    require(index.withStartupClass(entry.startupClass) == &entry, "An entry is found by its class.");
    require(index.withStartupClassIgnoringCase(DesktopSupport::lowerCase(entry.startupClass)) == &entry,
            "An entry is found by its class in lower case.");
  }
  if (const auto command = DesktopSupport::CommandLine::fromExec(entry.exec)) {
    require(!command->program.contains('/'), "A program is known by its base name.");
    require(index.starting(*command) == &entry, "An entry is found by its command.");
  }
}

}  // namespace

// The input is a desktop entry and, after a line "%%", a list of applications and what they open.
void Fuzz::run(std::string_view input) {
  constexpr std::string_view separator = "\n%%\n";
  static const Folders folders;
  const std::size_t end = std::min(input.find(separator), input.size());
  folders.write(input.substr(0, end), input.substr(std::min(end + separator.size(), input.size())));

  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  const DesktopEntry* entry = entries.find("a");
  const DesktopEntry* handler = DesktopSupport::handlerOfScheme("test", entries);
  require(handler == nullptr || handler == entry, "The handler of a URL is installed.");
  require(entry != nullptr || entries.index().withStartupClass("") == nullptr, "A missing entry isn't found.");
  if (entry != nullptr) {
    requireSound(*entry);
    requireFound(entries, *entry);
  }
}
