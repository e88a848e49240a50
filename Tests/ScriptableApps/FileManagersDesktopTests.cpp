// The Finder with real file managers that don't report which folders they show.

#include "Tests/ScriptableApps/FileManagersTest.h"
#include "Tests/ScriptableApps/Scripts.h"
#include "Tests/Support/EnvironmentVariable.h"

namespace {

using namespace std::chrono_literals;
using TestSupport::ChildProcess;
using TestSupport::FileManagersTest;
using TestSupport::listFolders;
using TestSupport::openPaths;
using TestSupport::openPathsAndLog;
using TestSupport::textOfScript;

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
  const std::string name = GetParam().command.front();
  EXPECT_EQ(textOfScript(listFolders),
            "-1728: Finder got an error: " + name + " is running but does not report which folders it shows.");
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

TEST_P(EachFileManager, IsWaitedForNoLongerThanSaidIfItHangs) {
  const std::string shown = make("shown");
  const ChildProcess program = start({shown});
  awaitWindow(program, shown);
  kill(program.pid(), SIGSTOP);
  const auto before = std::chrono::steady_clock::now();
  EXPECT_THAT(openPaths(TestSupport::shortly).value(), shows({shown})) << "it still watches the folder";
  EXPECT_LT(std::chrono::steady_clock::now() - before, 2 * TestSupport::shortly);
  kill(program.pid(), SIGCONT);
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

}  // namespace
