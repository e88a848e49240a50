#include "ScriptableApps/SystemEvents/ApplicationFile.h"

#include <system_error>
#include <utility>

#include "DesktopSupport/DesktopEntries/DesktopEntry.h"
#include "DesktopSupport/Processes/Sandbox.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/TimeLimit.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::displayable;
using DesktopSupport::ProcessInfo;
using DesktopSupport::Sandbox;
using std::filesystem::path;

// A file system that does not answer in time has no files: nobody could open them either.
bool isRegularFile(const path& file) {
  const auto found = DesktopSupport::foundWithin(DesktopSupport::fileSystemTime, [&file] {
    std::error_code ignored;
    return std::string(std::filesystem::is_regular_file(file, ignored) ? "yes" : "no");
  });
  return found == "yes";
}

// The name in the first desktop entry in `folder`. The program that mounts an AppImage may have been stopped.
std::string nameInside(const path& folder) {
  const auto found = DesktopSupport::foundWithin(DesktopSupport::fileSystemTime, [&folder]() -> std::string {
    std::error_code error;
    for (std::filesystem::directory_iterator file(folder, error); !error && file != end(file); file.increment(error))
      if (file->path().extension() == ".desktop")
        if (auto entry = DesktopSupport::DesktopEntry::read(file->path(), file->path().stem()))
          return std::move(entry->name);
    return "";
  });
  return found.value_or("");
}

path programOf(const ProcessInfo& process) {
  const path program = process.script().value_or(process.executable().value_or(""));
  return process.sharesMounts() == false && !process.sharesFile(program) ? path() : program;
}

}  // namespace

ApplicationFile ApplicationFile::of(const ProcessInfo& process) {
  const auto sandbox = Sandbox::of(process);
  if (!sandbox)
    return {.path = programOf(process)};
  switch (sandbox->kind) {
    case Sandbox::Kind::appImage:
      return {.path = sandbox->name, .name = nameInside(sandbox->folder), .isAppImage = true};
    case Sandbox::Kind::flatpak:
      return {.path = {}, .name = {}, .isAppImage = false, .sandbox = "the Flatpak " + displayable(sandbox->name)};
    case Sandbox::Kind::snap:
      return {.path = {}, .name = {}, .isAppImage = false, .sandbox = "the snap " + displayable(sandbox->name)};
  }
  std::unreachable();
}

std::optional<std::string> ApplicationFile::problem() const {
  const std::string file = displayable(path.string());
  if (!sandbox.empty())
    return "it is " + sandbox + ", which has no desktop entry.";
  if (file.empty())
    return "no desktop entry matches it, and its program on this computer is unknown.";
  if (!DesktopSupport::isDisplayable(path.string()))
    return "the path " + file + " contains characters that cannot be shown.";
  if (!isRegularFile(path))
    return "the file " + file + " cannot be found.";
  return std::nullopt;
}

}  // namespace ScriptableApps
