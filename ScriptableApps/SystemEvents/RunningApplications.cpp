#include "ScriptableApps/SystemEvents/RunningApplications.h"

#include <map>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "DesktopSupport/System/CommandLine.h"
#include "DesktopSupport/System/DisplayableText.h"
#include "DesktopSupport/System/ProcessInfo.h"
#include "DesktopSupport/System/TimeLimit.h"
#include "DesktopSupport/Windows/WindowMatcher.h"
#include "ScriptableApps/SystemEvents/WindowOwners.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::displayable;
using DesktopSupport::isDisplayable;
using DesktopSupport::ProcessInfo;
using DesktopSupport::Window;
using std::filesystem::path;

// What is known of a window's application.
struct Origin {
  const Window* window = nullptr;
  const DesktopSupport::DesktopEntry* entry = nullptr;
  std::optional<pid_t> pid = {};
  // The program, or the script that it runs.
  path file = {};
  std::string windowClass = {};

  // The same for all windows of one application.
  [[nodiscard]] std::string key() const {
    return entry != nullptr ? "entry " + entry->id : "class " + windowClass + '\n' + file.string();
  }
};

// The windows that ssh shows here for programs on another machine are not ssh's own.
bool isTunnel(const path& program) {
  return program.filename() == "ssh";
}

std::string classOf(const Window& window) {
  for (const std::string& name : {window.windowClass, window.instance, window.applicationID})
    if (std::string text = DesktopSupport::displayableName(name); !text.empty())
      return text;
  return "";
}

path fileOf(const ProcessInfo& process) {
  if (auto script = process.script())
    return std::move(*script);
  return process.executable().value_or("");
}

Origin originOf(const Window& window, DesktopSupport::DesktopEntries& entries, const path& processes) {
  ProcessInfo process(window.pid, processes);
  if (isTunnel(process.executable().value_or("")))
    process = ProcessInfo(std::nullopt);
  return {.window = &window,
          .entry = DesktopSupport::matchWindow(entries, window, process),
          .pid = process.pid(),
          .file = fileOf(process),
          .windowClass = classOf(window)};
}

// A window without a class goes with the first one of its file that has one.
void addMissingClasses(std::vector<Origin>& origins) {
  std::map<path, std::string> classes;
  for (const Origin& origin : origins)
    if (!origin.windowClass.empty())
      classes.emplace(origin.file, origin.windowClass);
  for (Origin& origin : origins)
    if (origin.windowClass.empty())
      origin.windowClass = classes[origin.file];
}

// What does not say so in time is no file: nobody could open it either.
bool isRegularFile(const path& file) {
  const auto found = DesktopSupport::foundWithin(DesktopSupport::fileSystemTime, [&file] {
    std::error_code ignored;
    return std::string(std::filesystem::is_regular_file(file, ignored) ? "yes" : "no");
  });
  return found == "yes";
}

// Why an application cannot be told of; none if it can.
std::optional<std::string> problemWith(const Origin& origin) {
  if (origin.entry != nullptr)
    return std::nullopt;
  const std::string subject = "An application with windows of the class \"" + origin.windowClass + "\" is left out: ";
  const std::string file = displayable(origin.file.string());
  if (file.empty())
    return subject + "no process of this machine tells which program it is.";
  if (!isDisplayable(origin.file.string()))
    return subject + "the path of " + file + " is not one line of text.";
  if (!isRegularFile(origin.file))
    return subject + "there is no file " + file + '.';
  return std::nullopt;
}

RunningApplication describe(const Origin& origin) {
  if (origin.entry != nullptr)
    return {.name = origin.entry->name, .file = origin.entry->file, .entryId = origin.entry->id, .pid = origin.pid};
  return {.name = origin.file.filename(), .file = origin.file, .pid = origin.pid};
}

class Builder {
 public:
  void add(const Origin& origin) {
    const std::string key = origin.key();
    if (auto problem = problemWith(origin)) {
      if (leftOut_.insert(key).second)
        problems_.push_back(std::move(*problem));
      return;
    }
    const auto [place, isNew] = places_.emplace(key, applications_.size());
    if (isNew)
      begin(origin);
    owners_.emplace(origin.window->id, place->second);
    applications_[place->second].isVisible |= !origin.window->isHidden;
  }

  void markFrontmost(DesktopSupport::WindowID window) {
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
  void begin(const Origin& origin) {
    applications_.push_back(describe(origin));
    classes_.push_back(origin.windowClass);
    ++sharers_[applications_.back().file];
  }

  [[nodiscard]] bool needsClass(const RunningApplication& application) const {
    return !application.entryId &&
           (sharers_.at(application.file) > 1 || DesktopSupport::isInterpreter(application.name));
  }

  std::vector<RunningApplication> applications_;
  std::vector<std::string> problems_;
  // The class of each application's first window.
  std::vector<std::string> classes_;
  // How many applications have a file.
  std::unordered_map<std::string, int> sharers_;
  std::unordered_set<std::string> leftOut_;
  std::unordered_map<std::string, std::size_t> places_;
  std::unordered_map<DesktopSupport::WindowID, std::size_t> owners_;
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
