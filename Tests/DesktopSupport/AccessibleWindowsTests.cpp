#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Windows/Accessible/AccessibleWindows.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using namespace DesktopSupport;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::EnvironmentVariable;
using TestSupport::TemporaryFolder;

// Desktop entries and autostart entries of a test's own.
class AccessibleWindows : public testing::Test {
 protected:
  AccessibleWindows() {
    addEntry("applications", "org.example.App");
    addEntry("applications", "org.example.Helper", "NoDisplay=true\n");
    addEntry("applications", "org.example.Background");
    addEntry("config/autostart", "org.example.Background");
  }

  void addEntry(const std::string& folder, const std::string& id, const std::string& more = "") {
    files_.write(folder + '/' + id + ".desktop", "[Desktop Entry]\nType=Application\nName=App\nExec=app\n" + more);
  }

  // The windows as "id: class, entry, process".
  std::vector<std::string> joined(const std::vector<AccessibleProgram>& programs,
                                  const std::vector<StartedApplication>& started) {
    DesktopEntries entries({files_.path() / "applications"});
    std::vector<std::string> texts;
    for (const Window& window : joinedWindows(programs, started, entries).windows)
      texts.push_back(std::to_string(window.id) + ": " + window.windowClass + ", " + window.applicationID + ", " +
                      (window.pid ? std::to_string(*window.pid) : "unknown"));
    return texts;
  }

  static StartedApplication started(const std::string& id, pid_t process, const std::string& random = "") {
    return {.unit = {.launcher = "gnome", .applicationID = id, .random = random}, .processes = {process}};
  }

 private:
  TemporaryFolder files_;
  EnvironmentVariable userFolder_{"XDG_CONFIG_HOME", (files_.path() / "config").string()};
  EnvironmentVariable otherFolders_{"XDG_CONFIG_DIRS", "/no/such/folder"};
};

TEST_F(AccessibleWindows, AreThoseOfProgramsThenOfStartedApplications) {
  EXPECT_THAT(joined({{.name = "one", .pid = 10, .windows = {{}, {}}}, {.name = "two", .windows = {{}}}},
                     {started("org.example.App", 20)}),
              ElementsAre("1: one, , 10", "2: one, , 10", "3: two, , unknown", "4: , org.example.App, 20"));
}

TEST_F(AccessibleWindows, AreNotThoseOfAStartedApplicationASecondTime) {
  EXPECT_THAT(joined({{.name = "app", .pid = 10, .windows = {{}}}}, {started("org.example.App", 10)}),
              ElementsAre("1: app, , 10"));
}

TEST_F(AccessibleWindows, AreNoneIfTheProgramSaysThatItHasNone) {
  EXPECT_THAT(joined({{.name = "app", .pid = 10}}, {started("org.example.App", 10)}), IsEmpty());
}

TEST_F(AccessibleWindows, AreNoneOfWhatRunsInTheBackground) {
  EXPECT_THAT(joined({}, {started("org.example.Helper", 10), started("org.example.Background", 11),
                          started("org.example.Unknown", 12), started("org.example.App", 13, "autostart")}),
              IsEmpty());
}

TEST_F(AccessibleWindows, MayBeActiveOrMinimized) {
  DesktopEntries entries({});
  const auto list = joinedWindows(
      {{.name = "one", .windows = {{.isMinimized = true}}}, {.name = "two", .windows = {{.isActive = true}}}}, {},
      entries);
  ASSERT_EQ(list.windows.size(), 2U);
  EXPECT_TRUE(list.windows[0].isHidden);
  EXPECT_FALSE(list.windows[1].isHidden);
  EXPECT_EQ(list.active, list.windows[1].id);
}

TEST_F(AccessibleWindows, AreNeverKnownToBeAll) {
  DesktopEntries entries({});
  EXPECT_FALSE(joinedWindows({}, {}, entries).isComplete);
}

}  // namespace
