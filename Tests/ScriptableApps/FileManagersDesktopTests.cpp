// The Finder with real file managers that don't report which folders they show.

#include <fstream>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "DesktopSupport/System/UserFolders.h"
#include "DesktopSupport/Windows/X11/X11Connection.h"
#include "Tests/ScriptableApps/FileManagersTest.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using namespace std::chrono_literals;
using TestSupport::ChildProcess;
using TestSupport::FileManagersTest;
using TestSupport::openPaths;
using TestSupport::openPathsAndLog;

/// A file manager, and how it titles its windows.
struct Program {
  std::string name;
  std::vector<std::string> command;
  std::string titleEnd = {};
};

class EachFileManager : public FileManagersTest, public testing::WithParamInterface<Program> {
 protected:
  /// Starts the program with a window for each folder, or with one that has a tab for each.
  ChildProcess start(const std::vector<std::string>& folders) {
    std::vector<std::string> command = GetParam().command;
    command.insert(command.end(), folders.begin(), folders.end());
    return ChildProcess(command);
  }

  void awaitWindow(const ChildProcess& program, const std::string& folder) {
    ASSERT_TRUE(desktop_.waitForTitle(std::filesystem::path(folder).filename().string() + GetParam().titleEnd));
    awaitWatch(program, folder);
  }
};

INSTANTIATE_TEST_SUITE_P(, EachFileManager,
                         testing::Values(Program{"Thunar", {"thunar"}, " - Thunar"},
                                         Program{"Caja", {"caja", "--no-desktop"}}, Program{"Nemo", {"nemo"}},
                                         Program{"PCManFM", {"pcmanfm"}},
                                         Program{"Dolphin", {"dolphin"}, " — Dolphin"}),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(EachFileManager, IsKnownByTheFolderThatItWatches) {
  const std::string shown = make("here/größer als 50% #1");
  make("größer als 50% #1");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), shows({shown}));
  EXPECT_EQ(log, "");
}

TEST_P(EachFileManager, IsKnownByTheInnerOneOfTwoFoldersWithTheSameName) {
  const std::string shown = make("docs/docs");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  EXPECT_THAT(openPaths().value(), shows({shown}));
}

TEST_P(EachFileManager, DoesNotReportIfItShowsALinkToAFolder) {
  const std::string shown = make("folder");
  const std::string link = folder_.path() / "link";
  std::filesystem::create_directory_symlink(shown, link);
  const ChildProcess program = start({link});
  ASSERT_TRUE(desktop_.waitForTitle("link" + GetParam().titleEnd));
  awaitWatch(program, shown);
  const auto paths = openPaths();
  ASSERT_FALSE(paths);
  EXPECT_EQ(paths.error().number, AppleScript::ErrorNumber::noSuchObject);
  EXPECT_EQ(paths.error().message, "Finder got an error: " + GetParam().command.front() +
                                       " is running but does not report which folders it shows.");
}

TEST_P(EachFileManager, LeavesOutAFolderWhosePathIsNotOneLine) {
  const std::string shown = make("two\nlines");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), shows({}));
  EXPECT_EQ(log, "The folder " + folder_.path().string() +
                     "/two lines is left out: its path contains characters that cannot be shown.\n");
}

// Stops a program while it does not hold the X server, which would stop everybody else.
void stopWithoutTheXServer(const ChildProcess& program) {
  kill(program.pid(), SIGSTOP);
  while (!DesktopSupport::X11Connection::connect(std::chrono::seconds(1))) {
    kill(program.pid(), SIGCONT);
    ASSERT_TRUE(DesktopSupport::X11Connection::connect());
    kill(program.pid(), SIGSTOP);
  }
}

TEST_P(EachFileManager, IsWaitedForNoLongerThanSaidIfItHangs) {
  const std::string shown = make("shown");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  stopWithoutTheXServer(program);
  EXPECT_THAT(openPaths(TestSupport::shortly).value(), shows({shown})) << "it still watches the folder";
  kill(program.pid(), SIGCONT);
}

TEST_P(EachFileManager, DoesNotListAFolderThatHasBeenRemoved) {
  const std::string shown = make("outer/shown");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  std::filesystem::remove(shown);
  EXPECT_THAT(openPaths().value_or(std::vector<std::string>()), testing::Not(testing::Contains(shown + '/')));
}

/// File managers that show a window for each folder.
using EachWithWindows = EachFileManager;

INSTANTIATE_TEST_SUITE_P(, EachWithWindows,
                         testing::Values(Program{"Thunar", {"thunar"}, " - Thunar"},
                                         Program{"Caja", {"caja", "--no-desktop"}}, Program{"Nemo", {"nemo"}}),
                         [](const auto& tested) { return tested.param.name; });

TEST_P(EachWithWindows, ShowsThemTheTopmostFirst) {
  const std::string first = make("first one");
  const std::string second = make("zweiter");
  const ChildProcess program = start({first, second});
  awaitWindow(program, first);
  awaitWindow(program, second);
  for (const auto& [upper, lower] : {std::pair(first, second), std::pair(second, first)}) {
    const auto window =
        desktop_.waitForTitle(std::filesystem::path(upper).filename().string() + GetParam().titleEnd).value();
    desktop_.askWindowManager(window, "_NET_ACTIVE_WINDOW");
    ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == window; }));
    EXPECT_THAT(openPaths().value(), testing::ElementsAre(upper + '/', lower + '/'));
  }
}

TEST_P(EachWithWindows, KnowsBothFoldersWithTheSameName) {
  const std::string first = make("1/same");
  const std::string second = make("2/same");
  make("3/same");
  const ChildProcess program = start({first, second});
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.clients().size() == 2; }));
  awaitWindow(program, first);
  awaitWindow(program, second);
  EXPECT_THAT(openPaths().value(), shows({first, second}));
}

TEST_P(EachWithWindows, LogsHowManyAreNotKnown) {
  const std::string known = make("known");
  std::filesystem::create_directory_symlink(make("folder"), folder_.path() / "link");
  const ChildProcess program = start({known, folder_.path() / "link"});
  awaitWindow(program, known);
  awaitWatch(program, folder_.path() / "folder");
  ASSERT_TRUE(desktop_.waitForTitle("link" + GetParam().titleEnd));
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), shows({known}));
  EXPECT_EQ(log, GetParam().command.front() + " does not report which folder it shows in 1 of its 2 windows.\n");
}

/// A file manager that is set up to show the whole path in its windows' titles.
class FullPaths : public FileManagersTest {
 protected:
  ~FullPaths() override {
    endSettingsDaemon();
    std::filesystem::remove(configuration_);
  }

  /// Ends what keeps Thunar's settings after it has read them; the bus starts it again.
  static void endSettingsDaemon() {
    constexpr const char* name = "org.xfce.Xfconf";
    const auto bus = DesktopSupport::SessionBus::connect();
    if (const auto daemon = DesktopSupport::BusDaemon(*bus, 60s).processOf(name))
      kill(*daemon, SIGKILL);  // it would write the settings again
    TestSupport::awaitNoOwner(name);
  }

  /// Writes one of the user's configuration files. It lasts as long as the test.
  void configure(const std::filesystem::path& file, const std::string& contents) {
    configuration_ = DesktopSupport::userConfigurationFolder() / file;
    std::filesystem::create_directories(configuration_.parent_path());
    endSettingsDaemon();
    std::ofstream(configuration_) << contents;
  }

  /// A link is known by its path alone.
  [[nodiscard]] std::string link() const {
    std::filesystem::create_directory_symlink(make("folder"), folder_.path() / "a link");
    return folder_.path() / "a link";
  }

 private:
  std::filesystem::path configuration_;
};

TEST_F(FullPaths, AreReadInThunarsTitles) {
  configure("xfce4/xfconf/xfce-perchannel-xml/thunar.xml", R"(<?xml version="1.0" encoding="UTF-8"?>
      <channel name="thunar" version="1.0">
        <property name="misc-full-path-in-window-title" type="bool" value="true"/>
      </channel>)");
  const std::string shown = link();
  const std::string broken = make("two\nlines");
  const ChildProcess thunar({"thunar", shown, "/", broken});
  ASSERT_TRUE(desktop_.waitForTitle(shown + " - Thunar"));
  ASSERT_TRUE(desktop_.waitForTitle("/ - Thunar"));
  ASSERT_TRUE(desktop_.waitForTitle("file://" + folder_.path().string() + "/two%0Alines - Thunar"));
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), testing::UnorderedElementsAre(shown + '/', "/"));
  EXPECT_EQ(log, "The folder " + folder_.path().string() +
                     "/two lines is left out: its path contains characters that cannot be shown.\n");
}

TEST_F(FullPaths, AreReadInNemosTitles) {
  configure("glib-2.0/settings/keyfile", "[org/nemo/preferences]\nshow-full-path-titles=true\n");
  const std::string shown = link();
  const ChildProcess nemo({"nemo", shown}, {.environment = {{"GSETTINGS_BACKEND", "keyfile"}}});
  ASSERT_TRUE(desktop_.waitForTitle("a link - " + shown));
  EXPECT_THAT(openPaths().value(), shows({shown}));
}

TEST_F(FullPaths, AreReadInDolphinsTitles) {
  configure("dolphinrc", "[General]\nShowFullPathInTitlebar=true\n");
  const std::string shown = link();
  const ChildProcess dolphin({"dolphin", shown});
  ASSERT_TRUE(desktop_.waitForTitle(shown + " — Dolphin"));
  EXPECT_THAT(openPaths().value(), shows({shown}));
}

TEST_F(FileManagersTest, ListTheTabsAndViewsOfDolphinTheOneInFrontFirst) {
  const std::string first = make("first");
  const std::string second = make("second");
  const std::string third = make("a third");
  const ChildProcess dolphin({"dolphin", third, first, second});
  ASSERT_TRUE(desktop_.waitForTitle("second — Dolphin"));
  const ChildProcess split({"dolphin", "--new-window", "--split", third, first});
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.clients().size() == 2; }));
  for (const auto& folder : {first, second, third})
    awaitWatch(dolphin, folder);
  awaitWatch(split, first);
  awaitWatch(split, third);
  const auto paths = openPaths().value();
  ASSERT_EQ(paths.size(), 5U);
  const auto front = std::ranges::find(paths, second + '/');
  EXPECT_NE(front, paths.end());
  EXPECT_TRUE(front == paths.begin() || front == paths.begin() + 2) << "each window begins with what its title names";
  EXPECT_THAT(paths, testing::UnorderedElementsAre(first + '/', second + '/', third + '/', first + '/', third + '/'));
}

TEST_F(FileManagersTest, ListAFolderOfDolphinThatThePlacesNameOtherwise) {
  const std::string shown = make("shown");
  const std::string other = make("other");
  const auto places = DesktopSupport::userDataFolder() / "user-places.xbel";
  std::filesystem::create_directories(places.parent_path());
  std::ofstream(places) << R"(<?xml version="1.0" encoding="UTF-8"?>
      <!DOCTYPE xbel>
      <xbel xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks">
        <bookmark href="file://)"
                        << shown << R"("><title>Work</title></bookmark>
      </xbel>)";
  const ChildProcess dolphin({"dolphin", shown});
  const auto window = desktop_.waitForTitle("Work — Dolphin");
  ASSERT_TRUE(window);
  const ChildProcess second({"dolphin", "--new-window", other});
  ASSERT_TRUE(desktop_.waitForTitle("other — Dolphin"));
  awaitWatch(dolphin, shown);
  awaitWatch(second, other);
  desktop_.askWindowManager(*window, "_NET_ACTIVE_WINDOW");
  ASSERT_TRUE(desktop_.waitUntil([&] { return desktop_.stackedClients().back() == *window; }));
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), testing::ElementsAre(shown + '/', other + '/'));
  EXPECT_EQ(log, "");
  std::filesystem::remove(places);
}

TEST_F(FileManagersTest, ListTheHomeFolderByItsOwnName) {
  const std::string home = DesktopSupport::homeFolder();
  const ChildProcess nemo({"nemo", home});
  ASSERT_TRUE(desktop_.waitForTitle("Home"));
  awaitWatch(nemo, home);
  EXPECT_THAT(openPaths().value(), shows({home}));
  const ChildProcess dolphin({"dolphin", home});
  ASSERT_TRUE(desktop_.waitForTitle("Home — Dolphin"));
  EXPECT_THAT(openPaths().value(), shows({home, home}));
}

TEST_F(FileManagersTest, AreListedBesideEachOther) {
  const std::string known = make("known");
  std::filesystem::create_directory_symlink(make("folder"), folder_.path() / "link");
  const ChildProcess pcmanfm({"pcmanfm", folder_.path() / "link"});
  ASSERT_TRUE(desktop_.waitForTitle("link"));
  const ChildProcess thunar({"thunar", known});
  ASSERT_TRUE(desktop_.waitForTitle("known - Thunar"));
  awaitWatch(thunar, known);
  std::string log;
  EXPECT_THAT(openPathsAndLog(log), shows({known}));
  EXPECT_EQ(log, "pcmanfm is running but does not report which folders it shows.\n");
}

TEST_F(FileManagersTest, AreKnownWithoutABus) {
  // Any program may watch the home folder without showing it.
  for (const std::string& shown : {make("shown"), DesktopSupport::homeFolder().string()}) {
    const ChildProcess pcmanfm({"pcmanfm", shown});
    ASSERT_TRUE(desktop_.waitForTitle(std::filesystem::path(shown).filename().string()));
    awaitWatch(pcmanfm, shown);
    const TestSupport::EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
    const TestSupport::EnvironmentVariable runtimeFolder("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_THAT(openPaths().value(), shows({shown}));
  }
}

}  // namespace
