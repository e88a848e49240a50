#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ScriptableApps/SystemEvents/RunningApplications.h"
#include "Tests/Support/EnvironmentVariable.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::DesktopEntries;
using DesktopSupport::Window;
using DesktopSupport::WindowList;
using ScriptableApps::RunningApplication;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::EnvironmentVariable;

// A made-up desktop: entries in one folder, processes in another, windows in a list.
class RunningApplicationsTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, const std::string& name, std::string_view more = "") {
    folder_.write("applications/" + id + ".desktop",
                  "[Desktop Entry]\nType=Application\nName=" + name + '\n' + std::string(more) + '\n');
  }

  void addProcess(pid_t pid, const std::string& program) {
    const auto process = folder_.path() / "proc" / std::to_string(pid);
    std::filesystem::create_directories(process);
    std::filesystem::create_symlink(program, process / "exe");
  }

  /// A process whose program is a file of this name in a folder of the test's own; yields the file's path.
  std::string addProgram(pid_t pid, const std::string& name) {
    const std::string program = folder_.write("bin/" + name, "");
    addProcess(pid, program);
    return program;
  }

  /// A process of an interpreter with this command line.
  void addInterpreter(pid_t pid, const std::string& name, const std::vector<std::string>& arguments) {
    addProgram(pid, name);
    std::string commandLine = name + '\0';
    for (const std::string& argument : arguments)
      commandLine += argument + '\0';
    folder_.write("proc/" + std::to_string(pid) + "/cmdline", commandLine);
  }

  Window& addWindow(const std::string& windowClass, std::optional<pid_t> pid = std::nullopt) {
    const auto id = static_cast<DesktopSupport::WindowID>(list_.windows.size() + 1);
    return list_.windows.emplace_back(
        Window{.id = id, .instance = windowClass, .windowClass = windowClass, .pid = pid});
  }

  /// A window of a program of its own, which is called like the class.
  Window& addApplication(const std::string& name) {
    const auto [known, isNew] = pids_.emplace(name, 1000 + static_cast<pid_t>(pids_.size()));
    if (isNew)
      addProgram(known->second, name);
    return addWindow(name, known->second);
  }

  ScriptableApps::RunningApplications running() {
    DesktopEntries entries({folder_.path() / "applications"});
    return ScriptableApps::runningApplications(list_, entries, folder_.path() / "proc");
  }
  std::vector<RunningApplication> applications() { return running().applications; }
  std::vector<std::string> problems() { return running().problems; }

  std::vector<std::string> names() {
    std::vector<std::string> names;
    for (const RunningApplication& application : applications())
      names.push_back(application.name);
    return names;
  }

  std::vector<std::string> files() {
    std::vector<std::string> files;
    for (const RunningApplication& application : applications())
      files.push_back(application.file);
    return files;
  }

  using Names = std::vector<std::string>;
  TestSupport::TemporaryFolder folder_;
  EnvironmentVariable path_{"PATH", folder_.path() / "bin"};
  std::map<std::string, pid_t> pids_;
  EnvironmentVariable language_{"LANGUAGE", "C"};
  WindowList list_;
};

TEST_F(RunningApplicationsTest, AreNoneWithoutWindows) {
  EXPECT_TRUE(applications().empty());
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirEntries) {
  addEntry("org.example.Files", "Files", "Name[de]=Dateien\nStartupWMClass=files");
  addProcess(7, "/usr/bin/files-bin");
  addWindow("files", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "Files");
  EXPECT_EQ(found[0].file, folder_.path() / "applications/org.example.Files.desktop");
  EXPECT_EQ(found[0].entryId, "org.example.Files");
  EXPECT_EQ(found[0].pid, 7);
  const EnvironmentVariable german("LANGUAGE", "de");
  EXPECT_EQ(names(), Names{"Dateien"});
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirProgramsWithoutAnEntry) {
  const std::string program = addProgram(7, "xclock");
  addWindow("XClock", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "xclock");
  EXPECT_EQ(found[0].file, program);
  EXPECT_EQ(found[0].entryId, std::nullopt);
  EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(RunningApplicationsTest, AreLeftOutWhereNoProcessOfThisMachineTellsTheirFile) {
  folder_.write("bin/xclock", "");
  std::filesystem::permissions(folder_.path() / "bin/xclock", std::filesystem::perms::owner_all);
  addWindow("SomeRemote");
  addWindow("xclock");
  addWindow("Gone", 7);
  addWindow("../../etc/passwd");
  addWindow("/etc/passwd");
  addWindow("SomeRemote");
  EXPECT_THAT(applications(), IsEmpty()) << "a class is no path, and no program's name either";
  const auto problem = [](const std::string& windowClass) {
    return "An application with windows of the class \"" + windowClass +
           "\" is left out: no process of this machine tells which program it is.";
  };
  EXPECT_THAT(problems(), ElementsAre(problem("SomeRemote"), problem("xclock"), problem("Gone"),
                                      problem("../../etc/passwd"), problem("/etc/passwd")))
      << "once for each";
}

TEST_F(RunningApplicationsTest, AreListedByTheirEntriesWhereNoProcessIsKnown) {
  addEntry("remote", "Remote", "StartupWMClass=SomeRemote");
  addWindow("SomeRemote");
  EXPECT_EQ(names(), Names{"Remote"});
  EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(RunningApplicationsTest, AreLeftOutWhereTheirFileIsGone) {
  addProcess(7, folder_.path() / "bin/removed (deleted)");
  addWindow("Removed", 7);
  addProcess(8, "/memfd:program (deleted)");
  addWindow("Memory", 8);
  EXPECT_THAT(applications(), IsEmpty());
  EXPECT_THAT(problems(), ElementsAre("An application with windows of the class \"Removed\" is left out: there is no "
                                      "file " +
                                          folder_.path().string() + "/bin/removed.",
                                      "An application with windows of the class \"Memory\" is left out: there is no "
                                      "file /memfd:program."));
}

TEST_F(RunningApplicationsTest, HaveTheFileThatReplacedTheirs) {
  const std::string program = folder_.write("bin/replaced", "");
  addProcess(7, program + " (deleted)");
  addWindow("Replaced", 7);
  EXPECT_EQ(files(), Names{program});
}

TEST_F(RunningApplicationsTest, AreListedOnceHoweverManyWindowsTheyHave) {
  addEntry("term", "Terminal", "StartupWMClass=XTerm");
  addWindow("XTerm", 7);
  addWindow("XTerm", 8);
  addProgram(9, "xclock");
  addProgram(10, "xclock");
  addWindow("Clock", 9);
  addWindow("Clock", 10);
  EXPECT_EQ(names(), (Names{"Terminal", "xclock"}));
}

TEST_F(RunningApplicationsTest, AreToldApartByTheClassesOfTheirWindowsBeforeTheirFiles) {
  const std::string program = addProgram(7, "suite");
  const std::string other = addProgram(8, "other");
  addWindow("Writer", 7);
  addWindow("Painter", 7);
  addWindow("Writer", 8);
  addWindow("Painter", 7);
  EXPECT_EQ(names(), (Names{"Writer", "Painter", "other"})) << "the program's name would be that of two";
  EXPECT_EQ(files(), (Names{program, program, other}));
}

TEST_F(RunningApplicationsTest, AreNotToldApartByAWindowWithoutAClass) {
  addProgram(7, "suite");
  addWindow("", 7);
  addWindow("Writer", 7);
  addWindow("Painter", 7);
  addWindow("", 7);
  EXPECT_EQ(names(), (Names{"Writer", "Painter"}));
}

TEST_F(RunningApplicationsTest, AreTheScriptsOfAnInterpreter) {
  const std::string viewer = folder_.write("scripts/viewer.py", "");
  const std::string editor = folder_.write("scripts/editor.py", "");
  addInterpreter(7, "python3.11", {"-u", viewer, "picture"});
  addInterpreter(8, "python3.11", {editor});
  addInterpreter(9, "python3.11", {"-u", viewer, "another"});
  for (const pid_t pid : {7, 8, 9})
    addWindow("Tk", pid);
  EXPECT_EQ(names(), (Names{"viewer.py", "editor.py"}));
  EXPECT_EQ(files(), (Names{viewer, editor}));
}

TEST_F(RunningApplicationsTest, AreCalledLikeTheirWindowsWhereAnInterpreterTellsNoScript) {
  addInterpreter(7, "python3.11", {"-m", "viewer"});
  addInterpreter(8, "python3.11", {"-c", "1"});
  addInterpreter(9, "perl", {folder_.path() / "removed.pl"});
  addWindow("Viewer", 7);
  addWindow("Editor", 8);
  addWindow("Player", 9);
  const std::string bin = folder_.path() / "bin";
  EXPECT_EQ(names(), (Names{"Viewer", "Editor", "Player"}));
  EXPECT_EQ(files(), (Names{bin + "/python3.11", bin + "/python3.11", bin + "/perl"}));
}

TEST_F(RunningApplicationsTest, AreCalledLikeAnInterpreterWhereNothingElseIsKnown) {
  addInterpreter(7, "python3.11", {});
  addWindow("", 7);
  EXPECT_EQ(names(), Names{"python3.11"});
}

TEST_F(RunningApplicationsTest, OfAnInterpreterAreListedByTheirEntries) {
  addEntry("viewer", "Viewer", "Exec=python3 /opt/viewer.py %U");
  addInterpreter(7, "python3.11", {folder_.write("scripts/viewer.py", "")});
  addWindow("Tk", 7);
  EXPECT_EQ(names(), Names{"Viewer"});
}

TEST_F(RunningApplicationsTest, HaveFilesWithAnAbsolutePathWhateverTheirEnvironmentSays) {
  const std::string program = addProgram(7, "tool");
  folder_.write("entry.desktop", "[Desktop Entry]\nType=Application\nName=Entry\n");
  folder_.write("proc/7/environ", std::string("BAMF_DESKTOP_FILE_HINT=entry.desktop") + '\0');
  addWindow("Tool", 7);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  EXPECT_EQ(files(), Names{program});
  std::filesystem::current_path(before);
}

TEST_F(RunningApplicationsTest, AreInTheOrderOfTheirFirstWindows) {
  for (const char* name : {"b", "a", "b", "c", "a"})
    addApplication(name);
  EXPECT_EQ(names(), (Names{"b", "a", "c"}));
}

TEST_F(RunningApplicationsTest, AreNotPartsOfTheDesktop) {
  addApplication("panel").isOrdinary = false;
  addApplication("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreListedForTheOrdinaryOnesOfTheirWindows) {
  addApplication("tool").isOrdinary = false;
  addApplication("tool");
  EXPECT_EQ(names(), Names{"tool"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfOthers) {
  addApplication("editor");
  addApplication("file-chooser").transientFor = 1;
  EXPECT_EQ(names(), Names{"editor"});
}

TEST_F(RunningApplicationsTest, AreNotListedForTheDialogsOfPanels) {
  addApplication("panel").isOrdinary = false;
  addApplication("preferences").transientFor = 1;
  EXPECT_TRUE(names().empty());
}

TEST_F(RunningApplicationsTest, AreListedForDialogsOfWindowsThatAreNotListed) {
  addApplication("dialog").transientFor = 99;
  EXPECT_EQ(names(), Names{"dialog"});
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirWindows) {
  addApplication("a");
  addApplication("b");
  addApplication("b");
  list_.active = 3;
  EXPECT_FALSE(applications()[0].isFrontmost);
  EXPECT_TRUE(applications()[1].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreFrontmostWithOneOfTheirDialogs) {
  addApplication("a");
  addApplication("dialog").transientFor = 1;
  list_.active = 2;
  EXPECT_TRUE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreNotFrontmostWhereAPanelIsActive) {
  addApplication("a");
  addApplication("panel").isOrdinary = false;
  list_.active = 2;
  EXPECT_FALSE(applications()[0].isFrontmost);
}

TEST_F(RunningApplicationsTest, AreVisibleUnlessAllTheirWindowsAreMinimised) {
  addApplication("a").isHidden = true;
  addApplication("b").isHidden = true;
  addApplication("b");
  EXPECT_FALSE(applications()[0].isVisible);
  EXPECT_TRUE(applications()[1].isVisible);
}

TEST_F(RunningApplicationsTest, HaveNamesOfOneLine) {
  addProgram(7, "tool");
  addWindow("Two\r\nLines", 7);
  addWindow("Line\u2028Separator\x01", 7);
  EXPECT_EQ(names(), (Names{"Two Lines", "Line Separator"}));
}

TEST_F(RunningApplicationsTest, AreLeftOutWhereThePathOfTheirFileIsNotOneLine) {
  addProgram(7, "two\nlines");
  addWindow("Lines", 7);
  addProgram(8, "bad\xff");
  addWindow("Bytes", 8);
  addInterpreter(9, "python3", {folder_.write("two\nlines.py", "")});
  addWindow("Script", 9);
  EXPECT_THAT(applications(), IsEmpty());
  const auto problem = [this](const std::string& windowClass, const std::string& file) {
    return "An application with windows of the class \"" + windowClass + "\" is left out: the path of " +
           (folder_.path() / file).string() + " is not one line of text.";
  };
  EXPECT_THAT(problems(), ElementsAre(problem("Lines", "bin/two lines"), problem("Bytes", "bin/bad\uFFFD"),
                                      problem("Script", "two lines.py")));
}

TEST_F(RunningApplicationsTest, HaveNamesOfAThousandCharactersAtMost) {
  addProgram(7, "python3");
  addWindow(std::string(64UL * 1024, 'n'), 7);
  EXPECT_EQ(names(), Names{std::string(999, 'n') + "…"});
}

TEST_F(RunningApplicationsTest, AreKnownByWhicheverNameTheirWindowsHave) {
  addProgram(7, "python3");
  addWindow("", 7).instance = "instance";
  addWindow("", 7).applicationID = "org.example.Missing";
  EXPECT_EQ(names(), (Names{"instance", "org.example.Missing"}));
}

TEST_F(RunningApplicationsTest, AreLeftOutWhereNothingIsKnownOfThem) {
  addWindow("");
  EXPECT_THAT(applications(), IsEmpty());
  EXPECT_EQ(problems().size(), 1U);
}

TEST_F(RunningApplicationsTest, OnOtherMachinesAreNotTheTunnelThatShowsThem) {
  addEntry("eyes", "Eyes", "StartupWMClass=XEyes");
  addProgram(7, "ssh");
  addWindow("XClock", 7);
  addWindow("XEyes", 7);
  EXPECT_EQ(names(), Names{"Eyes"});
  EXPECT_EQ(applications()[0].pid, std::nullopt);
  EXPECT_EQ(problems().size(), 1U);
}

}  // namespace
