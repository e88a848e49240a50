#include "DesktopSupport/Windows/WindowMatcher.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "DesktopSupport/Processes/ApplicationUnit.h"
#include "DesktopSupport/Processes/Sandbox.h"
#include "DesktopSupport/System/DisplayableText.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

// What is known of a window's application.
struct Evidence {
  const Window& window;
  const ProcessInfo& process;
  std::optional<Sandbox> sandbox = {};
};

// Whether the entry says that windows such as this one belong to it.
bool claims(const DesktopEntry& entry, const Window& window) {
  const auto names = {&window.instance, &window.windowClass, &window.applicationID};
  const std::string startupClass = lowerCase(entry.startupClass);
  return std::ranges::any_of(names, [&](const std::string* name) {
    return !name->empty() && (*name == entry.id || lowerCase(*name) == startupClass);
  });
}

// An application may have several entries: one for each of its programs, or for each web page that it shows as one.
const DesktopEntry* ofSandbox(DesktopEntries& entries, const Sandbox& sandbox, const Window& window) {
  const DesktopEntry* main = entries.find(sandbox.entryID);
  if (main != nullptr && claims(*main, window))
    return main;
  const DesktopEntryIndex& index = entries.index();
  const auto all = sandbox.kind == Sandbox::Kind::flatpak ? index.ofFlatpak(sandbox.name) : index.ofSnap(sandbox.name);
  const auto rank = [&](const DesktopEntry* entry) {
    const SnapApplication application{.instance = entry->snap, .application = entry->snapApplication};
    return std::tuple(claims(*entry, window), application.entryID() == sandbox.entryID, entry->isShown);
  };
  const auto best = std::ranges::max_element(all, {}, rank);
  return best == all.end() || (main != nullptr && !claims(**best, window)) ? main : *best;
}

// The file of the entry for which the desktop started this very process.
std::optional<std::string> launchedFile(const ProcessInfo& process) {
  // Children inherit both variables, but only the launched process has this id.
  const auto launched = process.environment("GIO_LAUNCHED_DESKTOP_FILE_PID");
  return launched == std::to_string(process.pid().value_or(0)) ? process.environment("GIO_LAUNCHED_DESKTOP_FILE")
                                                               : std::nullopt;
}

// The entry that the user, or a tool for AppImages, made for it. Entries with its class are those of other programs.
const DesktopEntry* ofAppImage(DesktopEntries& entries, const Sandbox& image, const Evidence& evidence) {
  if (const auto file = launchedFile(evidence.process))
    if (const auto* entry = entries.findFile(*file))
      return entry;
  const auto all = entries.index().running(image.name);
  const auto rank = [&](const DesktopEntry* entry) {
    return std::pair(claims(*entry, evidence.window), entry->isShown);
  };
  const auto best = std::ranges::max_element(all, {}, rank);
  return best == all.end() ? nullptr : *best;
}

const DesktopEntry* byApplicationID(DesktopEntries& entries, const Evidence& evidence) {
  return entries.find(evidence.window.applicationID);
}

const DesktopEntry* byStartupClass(DesktopEntries& entries, const Evidence& evidence) {
  const Window& window = evidence.window;
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

const DesktopEntry* byClassName(DesktopEntries& entries, const Evidence& evidence) {
  const Window& window = evidence.window;
  for (const std::string& name :
       {window.instance, window.windowClass, lastComponent(window.instance), lastComponent(window.windowClass)})
    if (const auto* entry = withNameOfClass(entries, name))
      return entry;
  return nullptr;
}

// The entry in the folder of an AppImage that was unpacked. If it is mounted, its entry goes with the process.
const DesktopEntry* inUnpackedAppImage(DesktopEntries& entries, const ProcessInfo& process) {
  const path folder = process.environment("APPDIR").value_or("");
  const path program = process.executable().value_or("");
  // Programs that it starts inherit the variable; only those inside the folder belong to it.
  if (!folder.is_absolute() || !program.string().starts_with((folder / "").string()))
    return nullptr;
  std::error_code error;
  for (std::filesystem::directory_iterator file(folder, error); !error && file != end(file); file.increment(error))
    if (const auto* entry = entries.findFile(file->path()))
      return entry;
  return nullptr;
}

const DesktopEntry* byEnvironment(DesktopEntries& entries, const Evidence& evidence) {
  const ProcessInfo& process = evidence.process;
  if (const auto file = process.environment("BAMF_DESKTOP_FILE_HINT"))
    if (const auto* entry = entries.findFile(*file))
      return entry;
  if (const auto file = launchedFile(process))
    if (const auto* entry = entries.findFile(*file))
      return entry;
  return inUnpackedAppImage(entries, process);
}

bool isNumber(const std::string& text) {
  return text.find_first_not_of("0123456789") == std::string::npos;
}

const DesktopEntry* byUnit(DesktopEntries& entries, const Evidence& evidence) {
  const ProcessInfo& process = evidence.process;
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

const DesktopEntry* byProgram(DesktopEntries& entries, const Evidence& evidence) {
  const auto command = commandOf(evidence.process);
  return command ? entries.index().starting(*command) : nullptr;
}

// A window without a known program, as most Wayland compositors tell, has nothing but names.
const DesktopEntry* byOtherName(DesktopEntries& entries, const Evidence& evidence) {
  const Window& window = evidence.window;
  const auto names = {&window.applicationID, &window.instance, &window.windowClass};
  const DesktopEntryIndex& index = entries.index();
  for (const std::string* name : names)
    if (const auto* entry = index.alsoCalled(*name))
      return entry;
  if (evidence.process.executable())
    return nullptr;
  for (const std::string* name : names)
    if (const auto* entry = index.starting({.program = *name, .arguments = {}}))
      return entry;
  for (const std::string* name : names)
    if (const auto* entry = index.endingWith(*name))
      return entry;
  return nullptr;
}

// Whether the entry belongs to another sandbox, or to one although the process is known to be in none.
bool isOfAnotherSandbox(const DesktopEntry& entry, const Evidence& evidence) {
  if (entry.flatpak.empty() && entry.snap.empty())
    return false;
  if (!evidence.sandbox)
    return evidence.process.sharesMounts().has_value();
  const auto nameIfIn = [&](Sandbox::Kind kind) {
    return evidence.sandbox->kind == kind ? evidence.sandbox->name : std::string();
  };
  return entry.flatpak != nameIfIn(Sandbox::Kind::flatpak) || entry.snap != nameIfIn(Sandbox::Kind::snap);
}

}  // namespace

const DesktopEntry* matchWindow(DesktopEntries& entries, const Window& window, const ProcessInfo& process) {
  const auto sandbox = Sandbox::of(process);
  const Evidence evidence{.window = window, .process = process, .sandbox = sandbox};
  if (sandbox && sandbox->kind == Sandbox::Kind::appImage)
    return ofAppImage(entries, *sandbox, evidence);
  if (sandbox)
    if (const auto* entry = ofSandbox(entries, *sandbox, window))
      return entry;
  constexpr std::array steps = {byApplicationID, byStartupClass, byClassName, byEnvironment,
                                byUnit,          byProgram,      byOtherName};
  for (const auto step : steps)
    if (const DesktopEntry* entry = step(entries, evidence))
      if (!isOfAnotherSandbox(*entry, evidence))
        return entry;
  return nullptr;
}

}  // namespace DesktopSupport
