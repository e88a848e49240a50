#include "ScriptableApps/Finder/FinderObjects.h"

#include <array>

#include "AppleScript/Values/Value.h"

namespace ScriptableApps {

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Value;

using Answer = AppleScript::Result<Value>;

const OpenFolder& folderOf(const Object& window) {
  return static_cast<const FinderWindow&>(window).folder();
}

const std::vector<FinderWindow>& windowsOf(const Object& root) {
  return static_cast<const FinderRoot&>(root).windows();
}

constexpr auto windowProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object& window) -> Answer { return Value(folderOf(window).name); }},
    {"target", [](const Object& window) -> Answer { return Value(AppleScript::File(folderOf(window).path)); }},
});

constexpr ClassDescription windowClass{.name = "window", .plural = "windows", .properties = windowProperties};
constexpr ClassDescription finderWindowClass{
    .name = "Finder window", .plural = "Finder windows", .properties = windowProperties};

std::size_t countWindows(const Object& root) {
  return windowsOf(root).size();
}
const Object& windowAt(const Object& root, std::size_t index) {
  return windowsOf(root)[index];
}

constexpr auto rootProperties = std::to_array<PropertyDescription>({
    {"name", [](const Object&) -> Answer { return Value("Finder"); }},
});

constexpr auto rootElements = std::to_array<ElementsDescription>({
    {&windowClass, countWindows, windowAt},
    {&finderWindowClass, countWindows, windowAt},
});

constexpr ClassDescription rootClass{
    .name = "application", .plural = "applications", .properties = rootProperties, .elements = rootElements};

constexpr std::array<const ClassDescription*, 3> classes = {&rootClass, &windowClass, &finderWindowClass};

}  // namespace

const ClassDescription& FinderWindow::classDescription() const {
  return windowClass;
}

const ClassDescription& FinderRoot::classDescription() const {
  return rootClass;
}

const AppleScript::Dictionary& finderDictionary() {
  static constexpr AppleScript::Dictionary dictionary{.application = &rootClass, .classes = classes};
  return dictionary;
}

}  // namespace ScriptableApps
