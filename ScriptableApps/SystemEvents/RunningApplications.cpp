#include "ScriptableApps/SystemEvents/RunningApplications.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "DesktopSupport/Processes/CommandLine.h"
#include "DesktopSupport/Processes/ProcessInfo.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/Windows/WindowMatcher.h"
#include "ScriptableApps/SystemEvents/ApplicationFile.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::ProcessInfo;
using DesktopSupport::Window;
using WindowID = DesktopSupport::WindowID;
using std::filesystem::path;

// Which window stands for which: the topmost parent for a dialog, any other window for itself.
class WindowOwners {
 public:
  explicit WindowOwners(const DesktopSupport::WindowList& list) {
    for (const Window& window : list.windows)
      parents_.emplace(window.id, window.transientFor);
  }

  // The window itself if its parent is not listed, or if windows name each other as parents.
  [[nodiscard]] WindowID ownerOf(WindowID window) const {
    constexpr int deepestDialog = 100;
    WindowID owner = window;
    for (int depth = 0; depth < deepestDialog; ++depth) {
      const auto parent = parentOf(owner);
      if (!parent)
        return owner;
      owner = *parent;
    }
    return window;
  }

 private:
  [[nodiscard]] std::optional<WindowID> parentOf(WindowID window) const {
    const auto found = parents_.find(window);
    const auto parent = found == parents_.end() ? std::nullopt : found->second;
    return parent && parents_.contains(*parent) ? parent : std::nullopt;
  }

  // Each listed window with the parent that it names.
  std::unordered_map<WindowID, std::optional<WindowID>> parents_;
};

// What is known of a window's application.
struct Origin {
  const Window* window = nullptr;
  const DesktopSupport::DesktopEntry* entry = nullptr;
  std::optional<pid_t> pid = {};
  ApplicationFile file = {};
  std::string windowClass = {};

  // The same for all windows of one application.
  [[nodiscard]] std::string key() const {
    if (entry != nullptr)
      return "entry " + entry->id;
    return (file.isAppImage ? "image" : "class " + windowClass) + '\n' + file.path.string() + '\n' + file.sandbox;
  }
};

// ssh shows windows here for programs on other machines; these are not its own.
constexpr const char* tunnel = "ssh";

// Programs in a Flatpak talk to the buses through a process that is in the same sandbox, but shows no windows.
constexpr const char* busProxy = "xdg-dbus-proxy";

std::string classOf(const Window& window) {
  for (const std::string& name : {window.windowClass, window.instance, window.applicationID})
    if (std::string text = DesktopSupport::displayableName(name); !text.empty())
      return text;
  return "";
}

Origin originOf(const Window& window, DesktopSupport::DesktopEntries& entries, const path& processes) {
  ProcessInfo process(window.pid, processes);
  const path program = process.executable().value_or("").filename();
  if (program == tunnel || !process.exists())
    process = ProcessInfo(std::nullopt);
  Origin origin{.window = &window,
                .entry = DesktopSupport::matchWindow(entries, window, process),
                .pid = process.pid(),
                .windowClass = classOf(window)};
  if (origin.entry == nullptr)
    origin.file = ApplicationFile::of(process);
  if (program == busProxy) {
    origin.pid.reset();
    origin.file.path.clear();
  }
  return origin;
}

// A window without an entry and a class gets the class of the first such window with the same file that has one.
void addMissingClasses(std::vector<Origin>& origins) {
  std::map<path, std::string> classes;
  for (const Origin& origin : origins)
    if (origin.entry == nullptr && !origin.windowClass.empty())
      classes.emplace(origin.file.path, origin.windowClass);
  for (Origin& origin : origins)
    if (origin.entry == nullptr && origin.windowClass.empty())
      origin.windowClass = classes[origin.file.path];
}

// Why an application is left out, or `nullopt` if it is not.
std::optional<std::string> problemWith(const Origin& origin) {
  const auto problem = origin.entry == nullptr ? origin.file.problem() : std::nullopt;
  if (!problem)
    return std::nullopt;
  return "An application with the window class \"" + origin.windowClass + "\" is left out: " + *problem;
}

RunningApplication describe(const Origin& origin) {
  if (origin.entry != nullptr)
    return {.name = origin.entry->name, .file = origin.entry->file, .entryID = origin.entry->id, .pid = origin.pid};
  const path& file = origin.file.path;
  return {
      .name = origin.file.name.empty() ? file.filename().string() : origin.file.name, .file = file, .pid = origin.pid};
}

// Collects the applications window by window.
class Builder {
 public:
  void add(const Origin& origin) {
    const auto place = placeOf(origin);
    if (!place)
      return;
    owners_.emplace(origin.window->id, *place);
    applications_[*place].isVisible |= !origin.window->isHidden;
  }

  void markFrontmost(WindowID window) {
    const auto owner = owners_.find(window);
    if (owner != owners_.end())
      applications_[owner->second].isFrontmost = true;
  }

  RunningApplications finish() {
    for (std::size_t place = 0; place < applications_.size(); ++place)
      if (needsClass(applications_[place]) && !classes_[place].empty())
        applications_[place].name = classes_[place];
    return {.applications = std::move(applications_), .problems = std::move(problems_)};
  }

 private:
  // The place of the window's application, or `nullopt` if that is left out. Whether it is takes a process to find out,
  // so only the application's first window decides.
  std::optional<std::size_t> placeOf(const Origin& origin) {
    const auto [known, isNew] = places_.try_emplace(origin.key());
    if (!isNew)
      return known->second;
    if (auto problem = problemWith(origin)) {
      problems_.push_back(std::move(*problem));
      return std::nullopt;
    }
    known->second = applications_.size();
    begin(origin);
    return known->second;
  }

  void begin(const Origin& origin) {
    applications_.push_back(describe(origin));
    classes_.push_back(origin.file.isAppImage ? "" : origin.windowClass);
    ++sharers_[applications_.back().file];
  }

  [[nodiscard]] bool needsClass(const RunningApplication& application) const {
    return !application.entryID &&
           (sharers_.at(application.file) > 1 || DesktopSupport::isInterpreter(application.name));
  }

  std::vector<RunningApplication> applications_;
  std::vector<std::string> problems_;
  // The class of each application's first window; empty for an AppImage, whose name is its own.
  std::vector<std::string> classes_;
  // How many applications have each file.
  std::unordered_map<std::string, int> sharers_;
  // The applications' places by their keys; `nullopt` for those that are left out.
  std::unordered_map<std::string, std::optional<std::size_t>> places_;
  std::unordered_map<WindowID, std::size_t> owners_;
};

}  // namespace

RunningApplications runningApplications(const DesktopSupport::WindowList& list, DesktopSupport::DesktopEntries& entries,
                                        const path& processes) {
  const WindowOwners owners(list);
  std::vector<Origin> origins;
  for (const Window& window : list.windows)
    if (window.isOrdinary && owners.ownerOf(window.id) == window.id)
      origins.push_back(originOf(window, entries, processes));
  addMissingClasses(origins);
  Builder builder;
  for (const Origin& origin : origins)
    builder.add(origin);
  if (list.active)
    builder.markFrontmost(owners.ownerOf(*list.active));
  return builder.finish();
}

}  // namespace ScriptableApps
