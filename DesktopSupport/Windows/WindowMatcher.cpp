#include "DesktopSupport/Windows/WindowMatcher.h"

#include <algorithm>
#include <array>

#include "DesktopSupport/Processes/ApplicationUnit.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

const DesktopEntry* bySandbox(DesktopEntries& entries, const Window&, const ProcessInfo& process) {
  if (const auto id = process.flatpakID())
    return entries.find(*id);
  const std::string& groups = process.controlGroups();
  const auto unit = ApplicationUnit::find(groups);
  if (unit && unit->launcher == "flatpak")
    return entries.find(unit->applicationID);
  const auto snap = snapID(groups);
  return snap ? entries.find(*snap) : nullptr;
}

const DesktopEntry* byApplicationID(DesktopEntries& entries, const Window& window, const ProcessInfo&) {
  return entries.find(window.applicationID);
}

const DesktopEntry* byStartupClass(DesktopEntries& entries, const Window& window, const ProcessInfo&) {
  // An entry with the instance's own name is preferred, so the other entries need not be read.
  const DesktopEntry* named = entries.find(window.instance);
  if (named != nullptr && named->startupClass == window.instance)
    return named;
  const DesktopEntryIndex& index = entries.index();
  if (const auto* entry = index.withStartupClass(window.instance))
    return entry;
  if (const auto* entry = index.withStartupClass(window.windowClass))
    return entry;
  if (const auto* entry = index.withStartupClassIgnoringCase(window.instance))
    return entry;
  return index.withStartupClassIgnoringCase(window.windowClass);
}

std::string asFileName(const std::string& windowClass) {
  std::string name = lowerCase(windowClass);
  std::ranges::replace(name, ' ', '-');
  return name;
}

const DesktopEntry* withName(DesktopEntries& entries, const std::string& name) {
  if (name.empty())
    return nullptr;
  for (const char* vendor : {"", "gnome-", "fedora-", "mozilla-", "debian-"})
    if (const auto* entry = entries.find(vendor + name))
      return entry;
  return nullptr;
}

const DesktopEntry* withNameOfClass(DesktopEntries& entries, const std::string& windowClass) {
  if (const auto* entry = withName(entries, windowClass))
    return entry;
  return withName(entries, asFileName(windowClass));
}

std::string lastComponent(const std::string& windowClass) {
  const auto dot = windowClass.rfind('.');
  return dot == std::string::npos ? "" : windowClass.substr(dot + 1);
}

const DesktopEntry* byClassName(DesktopEntries& entries, const Window& window, const ProcessInfo&) {
  for (const std::string& name :
       {window.instance, window.windowClass, lastComponent(window.instance), lastComponent(window.windowClass)})
    if (const auto* entry = withNameOfClass(entries, name))
      return entry;
  return nullptr;
}

const DesktopEntry* inAppImage(DesktopEntries& entries, const ProcessInfo& process) {
  const path folder = process.environment("APPDIR").value_or("");
  const path program = process.executable().value_or("");
  // Programs that an AppImage starts inherit the variable; only those inside it belong to the AppImage.
  if (!folder.is_absolute() || !program.string().starts_with((folder / "").string()))
    return nullptr;
  std::error_code error;
  for (std::filesystem::directory_iterator file(folder, error); !error && file != end(file); file.increment(error))
    if (const auto* entry = entries.findFile(file->path()))
      return entry;
  return nullptr;
}

const DesktopEntry* byEnvironment(DesktopEntries& entries, const Window&, const ProcessInfo& process) {
  if (const auto file = process.environment("BAMF_DESKTOP_FILE_HINT"))
    if (const auto* entry = entries.findFile(*file))
      return entry;
  const auto launchedFile = process.environment("GIO_LAUNCHED_DESKTOP_FILE");
  // Children inherit both variables, but only the launched process has this id.
  if (launchedFile && process.environment("GIO_LAUNCHED_DESKTOP_FILE_PID") == std::to_string(process.pid().value_or(0)))
    if (const auto* entry = entries.findFile(*launchedFile))
      return entry;
  return inAppImage(entries, process);
}

bool isNumber(const std::string& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

const DesktopEntry* byUnit(DesktopEntries& entries, const Window&, const ProcessInfo& process) {
  const auto unit = ApplicationUnit::find(process.controlGroups());
  if (!unit)
    return nullptr;
  // A program started in a terminal is in the terminal's unit, which names the process that it was made for.
  const bool isForAnother =
      !unit->random.empty() && isNumber(unit->random) && unit->random != std::to_string(process.pid().value_or(0));
  return isForAnother ? nullptr : entries.find(unit->applicationID);
}

std::optional<CommandLine> commandOf(const ProcessInfo& process) {
  std::vector<std::string> arguments = process.arguments();
  if (arguments.empty())
    arguments.resize(1);
  // A process can put any name into its command line.
  if (const auto program = process.executable())
    arguments.front() = *program;
  return arguments.front().empty() ? std::nullopt : CommandLine::from(arguments);
}

const DesktopEntry* byProgram(DesktopEntries& entries, const Window&, const ProcessInfo& process) {
  const auto command = commandOf(process);
  return command ? entries.index().starting(*command) : nullptr;
}

}  // namespace

const DesktopEntry* matchWindow(DesktopEntries& entries, const Window& window, const ProcessInfo& process) {
  constexpr std::array steps = {bySandbox,     byApplicationID, byStartupClass, byClassName,
                                byEnvironment, byUnit,          byProgram};
  for (const auto step : steps)
    if (const DesktopEntry* entry = step(entries, window, process))
      return entry;
  return nullptr;
}

}  // namespace DesktopSupport
