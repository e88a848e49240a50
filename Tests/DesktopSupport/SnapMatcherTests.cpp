// Which desktop entry belongs to a window of a program in a snap.

#include <string>

#include <gtest/gtest.h>

#include "Tests/DesktopSupport/WindowMatcherTest.h"

namespace {

using namespace std::string_literals;
using TestSupport::WindowMatcherTest;

class SnapWindow : public WindowMatcherTest {
 protected:
  void setUnit(const std::string& unit) { setProcessFile("cgroup", "0::/user.slice/app.slice/" + unit + '\n'); }
  static constexpr const char* uuid = "0a1b2c3d-0011-2233-4455-66778899aabb";
};

TEST_F(SnapWindow, HasTheEntryOfTheApplication) {
  addEntry("tool", "StartupWMClass=tool");
  addEntry("suite_tool", "X-SnapInstanceName=suite");
  for (const char* unit : {"snap.suite.tool-%.scope", "snap.suite.tool.%.scope", "snap.suite.tool.service"}) {
    std::string name = unit;
    if (const auto place = name.find('%'); place != std::string::npos)
      name.replace(place, 1, uuid);
    setUnit(name);
    EXPECT_EQ(match(windowOf("tool", "tool")), "suite_tool") << name;
  }
}

TEST_F(SnapWindow, HasTheEntryOfItsOwnInstance) {
  addEntry("tool_tool", "X-SnapInstanceName=tool");
  addEntry("tool+work_tool", "X-SnapInstanceName=tool_work");
  setUnit("snap.tool_work.tool-"s + uuid + ".scope");
  EXPECT_EQ(match(windowOf("x", "X")), "tool+work_tool");
}

TEST_F(SnapWindow, HasItsEntryUnderAnotherName) {
  addEntry("org.example.Help", "X-SnapInstanceName=suite\nX-SnapAppName=help");
  addEntry("org.example.Tool", "X-SnapInstanceName=suite\nX-SnapAppName=tool");
  addEntry("org.example.Writer", "X-SnapInstanceName=suite\nStartupWMClass=Writer");
  setUnit("snap.suite.tool-"s + uuid + ".scope");
  EXPECT_EQ(match(windowOf("x", "X")), "org.example.Tool");
  EXPECT_EQ(match(windowOf("x", "writer")), "org.example.Writer") << "a program may start another of its snap";
}

TEST_F(SnapWindow, HasTheEntryOfItsOwnInstanceUnderAnotherName) {
  addEntry("org.example.Help", "X-SnapInstanceName=suite_work\nX-SnapAppName=help");
  addEntry("org.example.Tool", "X-SnapInstanceName=suite_work\nX-SnapAppName=tool");
  setUnit("snap.suite_work.tool-"s + uuid + ".scope");
  EXPECT_EQ(match(windowOf("x", "X")), "org.example.Tool");
}

TEST_F(SnapWindow, IsKnownByTheLabelOrTheEnvironmentIfNoUnitTells) {
  addEntry("tool_tool", "X-SnapInstanceName=tool");
  setUnit("session-2.scope");
  setProcessFile("attr/current", "unconfined\n");
  EXPECT_EQ(match(windowOf("x", "X")), "none");
  setProcessFile("attr/current", "snap.tool.tool (enforce)\n");
  EXPECT_EQ(match(windowOf("x", "X")), "tool_tool");
  setProcessFile("attr/apparmor/current", "unconfined\n");
  EXPECT_EQ(match(windowOf("x", "X")), "none") << "the label of another security module";
  setProcessFile("environ", "SNAP_INSTANCE_NAME=tool\0"s);
  EXPECT_EQ(match(windowOf("x", "X")), "tool_tool");
}

TEST_F(SnapWindow, IsNotOneOfAProgramThatAnUnconfinedSnapStarted) {
  addEntry("editor_editor", "X-SnapInstanceName=editor");
  addEntry("clock");
  setUnit("snap.editor.editor-"s + uuid + ".scope");
  setProcessFile("environ", "SNAP_INSTANCE_NAME=editor\0"s);
  setSharesMounts(true);
  setExecutable("/usr/bin/clock");
  EXPECT_EQ(match(windowOf("clock", "Clock")), "clock");
  setExecutable("/snap/editor/17/usr/share/editor");
  EXPECT_EQ(match(windowOf("clock", "Clock")), "editor_editor");
  setExecutable("/var/lib/snapd/snap/editor/17/usr/share/editor");
  EXPECT_EQ(match(windowOf("clock", "Clock")), "editor_editor");
}

TEST_F(SnapWindow, IsOneOfTheSnapWithTheProgramIfTheMarksAreAnothers) {
  addEntry("editor_editor", "X-SnapInstanceName=editor");
  addEntry("clock_clock", "X-SnapInstanceName=clock");
  setUnit("snap.editor.editor-"s + uuid + ".scope");
  setSharesMounts(true);
  setExecutable("/snap/clock/1/bin/clock");
  EXPECT_EQ(match(windowOf("x", "X")), "clock_clock");
}

TEST_F(SnapWindow, CopesWithWhateverTheMarksSay) {
  addEntry("a", "StartupWMClass=A");
  for (const std::string& mark :
       {""s, "snap.../a.b"s, "snap.a.b"s, "snap."s, "snap.."s, "snap.a"s, "snap.a."s, "snap..a"s, "snap.\xff.a"s,
        "snap.a\0.a"s, "snap." + std::string(70000, 'a') + ".a"}) {
    setUnit(mark + ".scope");
    setProcessFile("attr/current", mark);
    setProcessFile("environ", "SNAP_INSTANCE_NAME=" + mark + '\0');
    EXPECT_EQ(match(windowOf("x", "X")), "none");
  }
}

}  // namespace
