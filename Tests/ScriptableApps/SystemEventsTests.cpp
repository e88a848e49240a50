#include <algorithm>

#include <gtest/gtest.h>

#include "AppleScript/Values/Value.h"
#include "ScriptableApps/SystemEvents/SystemEvents.h"

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::Object;
using AppleScript::Value;
using ScriptableApps::SystemEventsRoot;

Value propertyOf(const Object& object, std::string_view name) {
  const auto& properties = object.classDescription().properties;
  const auto found = std::ranges::find(properties, name, &AppleScript::PropertyDescription::name);
  if (found == properties.end()) {
    ADD_FAILURE() << "no property " << name;
    return {};
  }
  return found->get(object).value();
}

const ElementsDescription& elementsOf(const Object& object, std::string_view className) {
  const auto& elements = object.classDescription().elements;
  return *std::ranges::find(elements, className, [](const auto& each) { return each.elementClass->name; });
}

SystemEventsRoot twoProcesses() {
  return SystemEventsRoot({{.name = "Files",
                            .file = "/usr/share/applications/files.desktop",
                            .entryID = "files",
                            .pid = 7,
                            .isFrontmost = true,
                            .isVisible = true},
                           {.name = "XClock", .file = "XClock"}});
}

TEST(SystemEventsObjects, HaveAllThatIsKnownOfAnApplication) {
  const auto root = twoProcesses();
  const Object& files = root.processes()[0];
  EXPECT_EQ(propertyOf(files, "name").stringValue(), "Files");
  EXPECT_EQ(propertyOf(files, "displayed name").stringValue(), "Files");
  EXPECT_EQ(propertyOf(files, "background only").stringValue(), "false");
  EXPECT_EQ(propertyOf(files, "unix id").stringValue(), "7");
  EXPECT_EQ(propertyOf(files, "frontmost").stringValue(), "true");
  EXPECT_EQ(propertyOf(files, "visible").stringValue(), "true");
  EXPECT_EQ(propertyOf(files, "bundle identifier").stringValue(), "files");
  ASSERT_TRUE(propertyOf(files, "file").is<AppleScript::File>());
  EXPECT_EQ(propertyOf(files, "file").stringValue(), "/usr/share/applications/files.desktop");
}

TEST(SystemEventsObjects, HaveMissingValuesForWhatIsNotKnown) {
  const auto root = twoProcesses();
  const Object& clock = root.processes()[1];
  EXPECT_TRUE(propertyOf(clock, "unix id").isMissing());
  EXPECT_TRUE(propertyOf(clock, "bundle identifier").isMissing());
  EXPECT_TRUE(propertyOf(clock, "file").is<AppleScript::File>()) << "a script can always take its path";
}

TEST(SystemEventsObjects, HoldTheProcessesInTheirOrder) {
  const auto root = twoProcesses();
  for (const char* className : {"process", "application process"}) {
    const ElementsDescription& elements = elementsOf(root, className);
    ASSERT_EQ(elements.count(root), 2U);
    EXPECT_EQ(propertyOf(elements.at(root, 0), "name").stringValue(), "Files");
    EXPECT_EQ(propertyOf(elements.at(root, 1), "name").stringValue(), "XClock");
  }
}

TEST(SystemEventsObjects, AreOfClassesThatScriptsCanName) {
  const auto& classes = ScriptableApps::SystemEvents().dictionary().classes;
  const auto plurals = {"applications", "processes", "application processes"};
  EXPECT_TRUE(std::ranges::equal(classes, plurals, {}, &ClassDescription::plural));
  const auto root = twoProcesses();
  EXPECT_EQ(&root.classDescription(), ScriptableApps::SystemEvents().dictionary().application);
  EXPECT_EQ(propertyOf(root, "name").stringValue(), "System Events");
}

}  // namespace
