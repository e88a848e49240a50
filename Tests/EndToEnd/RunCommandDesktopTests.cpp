// A run-command launch on a real desktop, from the launch URL to the command.

#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Tests/EndToEnd/SentApplications.h"
#include "Tests/Support/BusNames.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/ClientList.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using TestSupport::ChildProcess;
using TestSupport::HostProcess;

namespace {

constexpr const char* pluginName = "com.quillary.Gleanery";
constexpr const char* emptyListCommand = "deskloom://gleanery/%5B%5D";

class RunCommandTest : public testing::Test {
 protected:
  int launch(std::vector<std::string> arguments, const ChildProcess::Options& options = {}) {
    arguments.insert(arguments.begin(), GLEANERY_PROGRAM);
    return TestSupport::run(arguments, options);
  }

  HostProcess host{DESKLOOM_HOST_PROGRAM};
};

/// Real applications with a window each, in the order in which the windows appeared.
class OpenApplications {
 public:
  OpenApplications() {
    TestSupport::ClientList windows;
    windows.awaitCount(0);
    for (const auto* program : {"xterm", "mousepad", "gnome-calculator", "xclock"}) {
      processes_.emplace_back(std::vector<std::string>{program});
      windows.awaitCount(processes_.size());
    }
  }
  ~OpenApplications() {
    TestSupport::ClientList windows;
    processes_.clear();
    windows.awaitCount(0);
  }

 private:
  std::list<ChildProcess> processes_;
};

TEST_F(RunCommandTest, SendsTheApplicationsThatHaveWindowsAndNoOthers) {
  const OpenApplications open;
  const auto expected = ElementsAre(Pair("XTerm", "file:///usr/share/applications/debian-xterm.desktop"),
                                    Pair("Mousepad", "file:///usr/share/applications/org.xfce.mousepad.desktop"),
                                    Pair("Calculator", "file:///usr/share/applications/org.gnome.Calculator.desktop"),
                                    Pair("xclock", "file:///usr/bin/xclock"));

  EXPECT_EQ(TestSupport::run({"gio", "open", "deskloomplugin://runCommand/apps"}), 0);
  EXPECT_THAT(sentApplications(host.nextLine()), expected) << "opened as any program on the desktop would";
  EXPECT_TRUE(TestSupport::openURL(pluginName, "deskloomplugin://runCommand/apps"));
  EXPECT_THAT(sentApplications(host.nextLine()), expected) << "delivered by the bus";
  EXPECT_EQ(launch({"deskloomplugin://runCommand/apps"}), 0);
  EXPECT_THAT(sentApplications(host.nextLine()), expected) << "delivered on the command line";
}

TEST_F(RunCommandTest, SendsAnEmptyListIfNothingIsOpen) {
  EXPECT_EQ(launch({"deskloomplugin://runCommand/apps"}), 0);
  EXPECT_EQ(host.nextLine(), emptyListCommand);
}

TEST_F(RunCommandTest, SendsAnEmptyListForAnIdentifierThatNobodyHas) {
  EXPECT_EQ(launch({"deskloomplugin://runCommand/Apps"}), 0);
  EXPECT_EQ(host.nextLine(), emptyListCommand);
}

TEST_F(RunCommandTest, SendsNothingWithoutAnIdentifier) {
  EXPECT_EQ(launch({"deskloomplugin://runCommand"}), 0);
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(RunCommandTest, HandlesEachLaunchURLOfItsCommandLine) {
  EXPECT_EQ(launch({"deskloomplugin://runCommand/a", "deskloomplugin://runCommand/b"}), 0);
  EXPECT_EQ(host.nextLine(), emptyListCommand);
  EXPECT_EQ(host.nextLine(), emptyListCommand) << "from the fresh process";
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(RunCommandTest, SendsAnEmptyListAndLogsWhyWithoutADisplay) {
  ChildProcess plugin({GLEANERY_PROGRAM, "deskloomplugin://runCommand/apps"},
                      {.environment = {{"DISPLAY", ""}}, .captureErrors = true});
  EXPECT_THAT(plugin.readAll(), HasSubstr("error: Optional({\n    NSAppleScriptErrorAppName = \"System Events\";"));
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_EQ(host.nextLine(), emptyListCommand);
}

TEST_F(RunCommandTest, SendsAnEmptyListAndLogsWhichFileManagerDoesNotReportItsFolders) {
  TestSupport::ClientList windows;
  windows.awaitCount(0);
  {
    // It shows a link's own name, and watches the folder by another.
    const TestSupport::TemporaryFolder folder;
    std::filesystem::create_directory_symlink("/", folder.path() / "link");
    const ChildProcess pcmanfm({"pcmanfm", folder.path() / "link"});
    windows.awaitCount(1);
    ChildProcess plugin({GLEANERY_PROGRAM, "deskloomplugin://runCommand/finder"}, {.captureErrors = true});
    const std::string log = plugin.readAll();
    EXPECT_THAT(log, HasSubstr("Finder got an error: pcmanfm is running but does not report which folders it shows."));
    EXPECT_THAT(log, HasSubstr("NSAppleScriptErrorNumber = \"-1728\";"));
    EXPECT_EQ(plugin.wait(), 0);
    EXPECT_EQ(host.nextLine(), emptyListCommand);
  }
  windows.awaitCount(0);
}

TEST_F(RunCommandTest, LogsThatNothingCouldBeHandedOverWithoutASessionBus) {
  ChildProcess plugin({GLEANERY_PROGRAM, "deskloomplugin://runCommand/apps"},
                      {.environment = {{"DBUS_SESSION_BUS_ADDRESS", ""}, {"XDG_RUNTIME_DIR", "/no-such-folder"}},
                       .captureErrors = true});
  EXPECT_THAT(plugin.readAll(), HasSubstr("could not hand over a deskloom: URL: "));
  EXPECT_EQ(plugin.wait(), 0);
  EXPECT_THAT(host.linesSoFar(), IsEmpty());
}

TEST_F(RunCommandTest, PrintsItsHelpAndItsVersion) {
  ChildProcess help({GLEANERY_PROGRAM, "--help"});
  EXPECT_THAT(help.readAll(), HasSubstr("Usage: "));
  EXPECT_EQ(help.wait(), 0);
  ChildProcess version({GLEANERY_PROGRAM, "--version"});
  EXPECT_THAT(version.readAll(), testing::MatchesRegex("[0-9]+\\.[0-9]+\\.[0-9]+\n"));
  EXPECT_EQ(version.wait(), 0);
  EXPECT_EQ(launch({"--no-such-option"}), 2);
}

}  // namespace
