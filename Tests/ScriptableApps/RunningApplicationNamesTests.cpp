// What running applications are called, and which file stands for each.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/ScriptableApps/RunningApplicationsTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::EnvironmentVariable;
using TestSupport::RunningApplicationsTest;

TEST_F(RunningApplicationsTest, AreNamedAfterTheirEntries) {
  addEntry("org.example.Files", "Files", "Name[de]=Dateien\nStartupWMClass=files");
  addProcess(7, "/usr/bin/files-bin");
  addWindow("files", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "Files");
  EXPECT_EQ(found[0].file, folder_.path() / "applications/org.example.Files.desktop");
  EXPECT_EQ(found[0].entryID, "org.example.Files");
  EXPECT_EQ(found[0].pid, 7);
  const EnvironmentVariable german("LANGUAGE", "de");
  EXPECT_EQ(names(), Names{"Dateien"});
}

TEST_F(RunningApplicationsTest, AreNamedAfterTheirProgramsIfTheyHaveNoEntry) {
  const std::string program = addProgram(7, "xclock");
  addWindow("XClock", 7);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "xclock");
  EXPECT_EQ(found[0].file, program);
  EXPECT_EQ(found[0].entryID, std::nullopt);
  EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(RunningApplicationsTest, AreLeftOutIfNoLocalProcessHasTheirFile) {
  folder_.write("bin/xclock", "");
  std::filesystem::permissions(folder_.path() / "bin/xclock", std::filesystem::perms::owner_all);
  addWindow("SomeRemote");
  addWindow("xclock");
  addWindow("Gone", 7);
  addWindow("../../etc/passwd");
  addWindow("/etc/passwd");
  addWindow("SomeRemote");
  EXPECT_THAT(applications(), IsEmpty()) << "a class is neither a path nor a program's name";
  const auto problem = [](const std::string& windowClass) {
    return "An application with the window class \"" + windowClass +
           "\" is left out: no desktop entry matches it, and its program on this computer is unknown.";
  };
  EXPECT_THAT(problems(), ElementsAre(problem("SomeRemote"), problem("xclock"), problem("Gone"),
                                      problem("../../etc/passwd"), problem("/etc/passwd")))
      << "once for each";
}

TEST_F(RunningApplicationsTest, AreListedByTheirEntriesIfNoProcessIsKnown) {
  addEntry("remote", "Remote", "StartupWMClass=SomeRemote");
  addWindow("SomeRemote");
  EXPECT_EQ(names(), Names{"Remote"});
  EXPECT_THAT(problems(), IsEmpty());
}

TEST_F(RunningApplicationsTest, AreLeftOutIfTheirFileIsGone) {
  addProcess(7, folder_.path() / "bin/removed (deleted)");
  addWindow("Removed", 7);
  addProcess(8, "/memfd:program (deleted)");
  addWindow("Memory", 8);
  EXPECT_THAT(applications(), IsEmpty());
  const auto problem = [](const std::string& windowClass, const std::string& file) {
    return "An application with the window class \"" + windowClass + "\" is left out: the file " + file +
           " cannot be found.";
  };
  EXPECT_THAT(problems(), ElementsAre(problem("Removed", folder_.path().string() + "/bin/removed"),
                                      problem("Memory", "/memfd:program")));
}

TEST_F(RunningApplicationsTest, HaveTheFileThatReplacedTheirs) {
  const std::string program = folder_.write("bin/replaced", "");
  addProcess(7, program + " (deleted)");
  addWindow("Replaced", 7);
  EXPECT_EQ(files(), Names{program});
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

TEST_F(RunningApplicationsTest, AreNamedAfterTheirWindowsIfAnInterpreterHasNoScript) {
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

TEST_F(RunningApplicationsTest, AreNamedAfterAnInterpreterIfNothingElseIsKnown) {
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

TEST_F(RunningApplicationsTest, HaveNamesOfOneLine) {
  addProgram(7, "tool");
  addWindow("Two\r\nLines", 7);
  addWindow("Line\u2028Separator\x01", 7);
  EXPECT_EQ(names(), (Names{"Two Lines", "Line Separator"}));
}

TEST_F(RunningApplicationsTest, AreLeftOutIfThePathOfTheirFileIsNotOneLine) {
  addProgram(7, "two\nlines");
  addWindow("Lines", 7);
  addProgram(8, "bad\xff");
  addWindow("Bytes", 8);
  addInterpreter(9, "python3", {folder_.write("two\nlines.py", "")});
  addWindow("Script", 9);
  EXPECT_THAT(applications(), IsEmpty());
  const auto problem = [this](const std::string& windowClass, const std::string& file) {
    return "An application with the window class \"" + windowClass + "\" is left out: the path " +
           (folder_.path() / file).string() + " contains characters that cannot be shown.";
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

TEST_F(RunningApplicationsTest, AreLeftOutIfNothingIsKnownOfThem) {
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
