#include "ScriptableApps/RunningApplications.h"

#include <unordered_map>

#include "DesktopSupport/DisplayableText.h"
#include "DesktopSupport/GLibHandles.h"
#include "DesktopSupport/ProcessInfo.h"
#include "DesktopSupport/WindowMatcher.h"
#include "ScriptableApps/WindowOwners.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::displayable;
using DesktopSupport::isDisplayable;
using DesktopSupport::Window;
using std::filesystem::path;

// What is known of a window's application.
struct Origin {
  const DesktopSupport::DesktopEntry* entry = nullptr;
  std::optional<pid_t> pid = {};
  path program = {};
  std::string windowClass = {};

  [[nodiscard]] bool isKnown() const { return entry != nullptr || !program.empty() || !windowClass.empty(); }

  // The same for all windows of one application.
  [[nodiscard]] std::string key() const {
    if (entry != nullptr)
      return "entry " + entry->id;
    return program.empty() ? "class " + windowClass : "program " + program.string();
  }
};

// The windows that ssh shows here for programs on another machine are not ssh's own.
bool isTunnel(const path& program) {
  return program.filename() == "ssh";
}

std::string classOf(const Window& window) {
  for (const std::string& name : {window.windowClass, window.instance, window.applicationId})
    if (std::string text = displayable(name); !text.empty())
      return text;
  return "";
}

Origin originOf(const Window& window, DesktopSupport::DesktopEntries& entries, const path& processes) {
  DesktopSupport::ProcessInfo process(window.pid, processes);
  path program = process.executable().value_or("");
  if (isTunnel(program)) {
    process = DesktopSupport::ProcessInfo(std::nullopt);
    program.clear();
  }
  return {.entry = DesktopSupport::matchWindow(entries, window, process),
          .pid = process.pid(),
          .program = program,
          .windowClass = classOf(window)};
}

std::string nameOf(const Origin& origin) {
  if (origin.entry != nullptr)
    return origin.entry->name;
  const std::string program = displayable(origin.program.filename().string());
  return program.empty() ? origin.windowClass : program;
}

std::optional<std::string> programCalled(const std::string& name) {
  if (name.contains('/'))
    return std::nullopt;
  const DesktopSupport::CharsHandle found(g_find_program_in_path(name.c_str()));
  const std::string file = found ? found.get() : "";
  return file.starts_with('/') && isDisplayable(file) ? std::optional(file) : std::nullopt;
}

std::string fileOf(const Origin& origin, const Window& window) {
  if (origin.entry != nullptr)
    return origin.entry->file;
  if (!origin.program.empty() && isDisplayable(origin.program.string()))
    return origin.program;
  for (const std::string& name : {window.instance, window.windowClass})
    if (auto program = programCalled(name))
      return *program;
  return origin.windowClass.empty() ? displayable(origin.program.string()) : origin.windowClass;
}

RunningApplication describe(const Origin& origin, const Window& window) {
  RunningApplication application{.name = nameOf(origin), .file = fileOf(origin, window), .pid = origin.pid};
  if (origin.entry != nullptr)
    application.entryId = origin.entry->id;
  return application;
}

class Builder {
 public:
  Builder(DesktopSupport::DesktopEntries& entries, const path& processes) : entries_(entries), processes_(processes) {}

  void add(const Window& window) {
    const Origin origin = originOf(window, entries_, processes_);
    if (!origin.isKnown())
      return;
    const auto [place, isNew] = places_.emplace(origin.key(), applications.size());
    if (isNew)
      applications.push_back(describe(origin, window));
    owners_.emplace(window.id, place->second);
    applications[place->second].isVisible |= !window.isHidden;
  }

  void markFrontmost(DesktopSupport::WindowId window) {
    const auto owner = owners_.find(window);
    if (owner != owners_.end())
      applications[owner->second].isFrontmost = true;
  }

  std::vector<RunningApplication> applications;

 private:
  DesktopSupport::DesktopEntries& entries_;
  const path& processes_;
  std::unordered_map<std::string, std::size_t> places_;
  std::unordered_map<DesktopSupport::WindowId, std::size_t> owners_;
};

}  // namespace

std::vector<RunningApplication> runningApplications(const DesktopSupport::WindowList& list,
                                                    DesktopSupport::DesktopEntries& entries, const path& processes) {
  const WindowOwners owners(list);
  Builder builder(entries, processes);
  for (const Window& window : list.windows)
    if (window.isOrdinary && owners.ownerOf(window.id) == window.id)
      builder.add(window);
  if (list.active)
    builder.markFrontmost(owners.ownerOf(*list.active));
  return std::move(builder.applications);
}

}  // namespace ScriptableApps
