#include "DesktopSupport/Processes/Sandbox.h"

#include <climits>

#include "DesktopSupport/Processes/ApplicationUnit.h"
#include "DesktopSupport/Processes/CommandLine.h"
#include "DesktopSupport/System/Paths.h"

namespace DesktopSupport {

namespace {

using std::filesystem::path;

std::optional<Sandbox> flatpakOf(const ProcessInfo& process) {
  auto id = process.flatpakID();
  // A process may be unreadable, but its control groups never are.
  if (const auto unit = id ? std::nullopt : ApplicationUnit::find(process.controlGroups()))
    if (unit->launcher == "flatpak")
      id = unit->applicationID;
  if (!id || id->empty())
    return std::nullopt;
  return Sandbox{.kind = Sandbox::Kind::flatpak, .name = *id, .entryID = *id};
}

// The name of the snap whose folder has the program of the process: "code" for /snap/code/17/bin/code.
std::string snapWithProgramOf(const ProcessInfo& process) {
  const path program = process.executable().value_or("");
  for (const path folder : {"/snap", "/var/lib/snapd/snap"})
    if (isInside(program, folder))
      return *program.lexically_relative(folder).begin();
  return "";
}

std::optional<SnapApplication> markedSnap(const ProcessInfo& process) {
  if (auto found = SnapApplication::find(process.controlGroups()))
    return found;
  if (auto found = SnapApplication::fromLabel(process.securityLabel()))
    return found;
  const auto name = process.environment("SNAP_INSTANCE_NAME");
  return name && !name->empty() ? std::optional(SnapApplication{.instance = *name, .application = ""}) : std::nullopt;
}

// A snap without confinement ("classic") leaves its marks on every program that is started from it, such as a shell in
// an editor. Only those in its own folder are its programs.
std::optional<SnapApplication> unconfinedSnap(const ProcessInfo& process) {
  const std::string name = snapWithProgramOf(process);
  if (name.empty())
    return std::nullopt;
  auto marked = markedSnap(process);
  return marked && marked->instance == name ? marked : SnapApplication{.instance = name, .application = ""};
}

std::optional<Sandbox> snapOf(const ProcessInfo& process, bool isConfined) {
  const auto snap = isConfined ? markedSnap(process) : unconfinedSnap(process);
  if (!snap)
    return std::nullopt;
  return Sandbox{
      .kind = Sandbox::Kind::snap, .name = snap->instance, .entryID = snap->application.empty() ? "" : snap->entryID()};
}

// The path in a variable, without "." and ".." and a slash at its end; empty if it is no absolute path.
path pathIn(const ProcessInfo& process, std::string_view variable) {
  const std::string value = process.environment(variable).value_or("");
  if (!value.starts_with('/') || value.size() > PATH_MAX)
    return {};
  return (path(value) / "").lexically_normal().parent_path();
}

// Programs that an AppImage starts inherit its variables; only those inside it belong to it.
std::optional<Sandbox> appImageOf(const ProcessInfo& process) {
  const path program = process.executable().value_or("");
  const bool runsScript = isInterpreter(program.filename().string());
  // No AppImage is mounted there, and most environments need not be read.
  if (isInside(program, "/usr") && !runsScript)
    return std::nullopt;
  const path file = pathIn(process, "APPIMAGE");
  const path folder = pathIn(process, "APPDIR");
  if (file.empty() || !folder.has_relative_path() || isInside(file, folder))
    return std::nullopt;
  if (!isInside(program, folder) && !(runsScript && isInside(process.script().value_or(""), folder)))
    return std::nullopt;
  return Sandbox{.kind = Sandbox::Kind::appImage, .name = file, .folder = folder};
}

}  // namespace

std::optional<Sandbox> Sandbox::of(const ProcessInfo& process) {
  if (!process.pid())
    return std::nullopt;
  const bool isConfined = process.sharesMounts() != true;
  if (isConfined)
    if (auto flatpak = flatpakOf(process))
      return flatpak;
  if (auto snap = snapOf(process, isConfined))
    return snap;
  return appImageOf(process);
}

}  // namespace DesktopSupport
