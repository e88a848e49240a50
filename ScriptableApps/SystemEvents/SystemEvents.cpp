#include "ScriptableApps/SystemEvents/SystemEvents.h"

#include <array>
#include <string>
#include <utility>

#include "AppleScript/Values/Value.h"
#include "DesktopSupport/DesktopEntries/DesktopEntries.h"
#include "DesktopSupport/Screen/Screen.h"
#include "DesktopSupport/System/SystemLog.h"
#include "ScriptableApps/Errors/ApplicationErrors.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Result;
using AppleScript::Value;

using Answer = Result<Value>;

constexpr const char* applicationName = "System Events";

const RunningApplication& applicationOf(const Object& process) {
  return static_cast<const ProcessObject&>(process).application();
}

const std::vector<ProcessObject>& processesOf(const Object& root) {
  return static_cast<const SystemEventsRoot&>(root).processes();
}

template <typename T>
Value orMissing(const std::optional<T>& value) {
  return value ? Value(*value) : Value();
}

// Whatever is listed has a window, so it is never in the background only.
constexpr auto processProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object& process) -> Answer { return Value(applicationOf(process).name); }},
    {"displayed name", [](const Object& process) -> Answer { return Value(applicationOf(process).name); }},
    {"background only", [](const Object&) -> Answer { return Value(false); }},
    {"file", [](const Object& process) -> Answer { return Value(AppleScript::File(applicationOf(process).file)); }},
    {"unix id", [](const Object& process) -> Answer { return orMissing(applicationOf(process).pid); }},
    {"frontmost", [](const Object& process) -> Answer { return Value(applicationOf(process).isFrontmost); }},
    {"visible", [](const Object& process) -> Answer { return Value(applicationOf(process).isVisible); }},
    {"bundle identifier", [](const Object& process) -> Answer { return orMissing(applicationOf(process).entryID); }},
});

constexpr ClassDescription processClass{.name = "process", .plural = "processes", .properties = processProperties};
constexpr ClassDescription applicationProcessClass{
    .name = "application process", .plural = "application processes", .properties = processProperties};

std::size_t countProcesses(const Object& root) {
  return processesOf(root).size();
}

const Object& processAt(const Object& root, std::size_t index) {
  return processesOf(root)[index];
}

constexpr auto rootProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object&) -> Answer { return Value(applicationName); }},
});

constexpr auto rootElements = std::to_array<ElementsDescription>({
    {&processClass, countProcesses, processAt},
    {&applicationProcessClass, countProcesses, processAt},
});

constexpr ClassDescription rootClass{
    .name = "application", .plural = "applications", .properties = rootProperties, .elements = rootElements};

constexpr std::array<const ClassDescription*, 3> classes = {&rootClass, &processClass, &applicationProcessClass};

}  // namespace

std::string_view SystemEvents::name() const {
  return applicationName;
}

const AppleScript::Dictionary& SystemEvents::dictionary() const {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = classes};
  return dictionary;
}

Result<AppleScript::ObjectPointer> SystemEvents::open() {
  const auto windows = DesktopSupport::readWindows();
  if (!windows)
    return std::unexpected(notRunning(name(), windows.error().message));
  for (const std::string& problem : windows->problems)
    DesktopSupport::writeToSystemLog(problem);
  DesktopSupport::DesktopEntries entries(DesktopSupport::applicationFolders());
  auto running = runningApplications(*windows, entries);
  for (const std::string& problem : running.problems)
    DesktopSupport::writeToSystemLog(problem);
  return std::make_shared<const SystemEventsRoot>(std::move(running.applications));
}

const ClassDescription& ProcessObject::classDescription() const {
  return processClass;
}

SystemEventsRoot::SystemEventsRoot(std::vector<RunningApplication> applications) {
  processes_.reserve(applications.size());
  for (RunningApplication& application : applications)
    processes_.emplace_back(std::move(application));
}

const ClassDescription& SystemEventsRoot::classDescription() const {
  return rootClass;
}

}  // namespace ScriptableApps
