#include "ScriptableApps/SystemEvents/SystemEventsObjects.h"

#include <array>
#include <string>
#include <utility>

#include "AppleScript/Values/Value.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Result;
using AppleScript::Value;

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

using Answer = Result<Value>;

// Nothing is listed that has no window, so nothing listed is in the background only.
constexpr auto processProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object& process) -> Answer { return Value(applicationOf(process).name); }},
    {"displayed name", [](const Object& process) -> Answer { return Value(applicationOf(process).name); }},
    {"background only", [](const Object&) -> Answer { return Value(false); }},
    {"file", [](const Object& process) -> Answer { return Value(AppleScript::File(applicationOf(process).file)); }},
    {"unix id", [](const Object& process) -> Answer { return orMissing(applicationOf(process).pid); }},
    {"frontmost", [](const Object& process) -> Answer { return Value(applicationOf(process).isFrontmost); }},
    {"visible", [](const Object& process) -> Answer { return Value(applicationOf(process).isVisible); }},
    {"bundle identifier", [](const Object& process) -> Answer { return orMissing(applicationOf(process).entryId); }},
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
    {"name", [](const Object&) -> Answer { return Value("System Events"); }},
});

constexpr auto rootElements = std::to_array<ElementsDescription>({
    {&processClass, countProcesses, processAt},
    {&applicationProcessClass, countProcesses, processAt},
});

constexpr ClassDescription rootClass{
    .name = "application", .plural = "applications", .properties = rootProperties, .elements = rootElements};

constexpr std::array<const ClassDescription*, 3> classes = {&rootClass, &processClass, &applicationProcessClass};

}  // namespace

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

const AppleScript::Dictionary& systemEventsDictionary() {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = classes};
  return dictionary;
}

}  // namespace ScriptableApps
